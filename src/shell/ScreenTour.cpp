#include "shell/ScreenTour.h"

#include <set>

#include "Classes/Interface/Screens/TableScreen.h"
#include "shell/Shell.h"

namespace dayward {

namespace {

constexpr int kDeepest = 4;

/// One thing on a screen that opens something.
struct Door {
    std::string row;
    std::optional<std::size_t> part;  ///< of the row; none for the row itself
    auto operator<=>(const Door&) const = default;
};

std::vector<Door> doorsOf(const TableRow& row) {
    if (!row.enabled) return {};
    if (row.kind == RowKind::eventHeader)
        return {{row.id, EventEditHeaderCell::iconPart}, {row.id, EventEditHeaderCell::categoryPart}};
    if (row.opensScreen || row.open) return {{row.id, {}}};
    return {};
}

/// A door changes the rows; what is to be opened next is asked anew each time.
std::optional<Door> nextDoor(const TableScreen& screen, std::set<Door>& seen) {
    for (const TableSection& section : screen.sections()) {
        for (const TableRow& row : section.rows) {
            for (Door& door : doorsOf(row)) {
                if (seen.insert(door).second) return door;
            }
        }
    }
    return std::nullopt;
}

void visit(Shell& shell, const std::function<void()>& look, int depth) {
    look();
    auto* const screen = dynamic_cast<TableScreen*>(shell.navigation().topScreen().get());
    if (screen == nullptr || depth > kDeepest) return;
    std::set<Door> seen;
    while (const auto door = nextDoor(*screen, seen)) {
        const auto path = *screen->pathOfRow(door->row);
        door->part ? screen->tapItem(path, *door->part) : screen->select(path);
        if (shell.navigation().topScreen().get() == screen) {
            look();
            continue;
        }
        visit(shell, look, depth + 1);
        shell.goBack();
    }
}

}  // namespace

void tourScreens(Shell& shell, const std::function<void()>& look) { visit(shell, look, 0); }

}  // namespace dayward
