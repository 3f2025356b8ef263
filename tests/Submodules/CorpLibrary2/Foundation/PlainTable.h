// The sectioned list in the plainest form: arrays, walks and nothing kept. What it tells its log is what
// CCTableDataSource has to tell its delegate.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "Submodules/CorpLibrary2/Foundation/IndexPath.h"

namespace dayward {

/// How many random sequences a comparison with the plain list makes for each order: `fewest`, or as the
/// environment variable DAYWARD_LIST_CASES says.
inline unsigned randomCases(unsigned fewest) {
    const char* wanted = std::getenv("DAYWARD_LIST_CASES");
    return wanted == nullptr ? fewest : static_cast<unsigned>(std::atoi(wanted));
}

template <class Row, class Section>
class PlainTable {
public:
    struct Node {
        Section object;
        std::vector<Row> items;
    };

    std::function<Section(const Row&)> sectionForObject;
    std::function<bool(const Section&, const Section&)> sectionBefore;
    std::function<bool(const Row&, const Row&)> rowBefore;
    std::vector<Node> tree;
    std::vector<std::string> log;

    static std::string text(IndexPath path) { return std::to_string(path.section) + "." + std::to_string(path.row); }

    void setObjects(const std::vector<Row>& objects) {
        tree = build(objects);
        log.push_back("reload");
    }

    void appendObject(const Row& object) {
        const auto section = sectionForObject(object);
        const auto node = indexOfSection(section);
        if (node < tree.size()) {
            const auto index = newIndex(tree[node].items, object, rowBefore);
            tree[node].items.insert(tree[node].items.begin() + static_cast<long>(index), object);
            log.push_back("insert row " + text({node, index}));
            return;
        }
        const auto index = newIndex(sections(), section, sectionBefore);
        tree.insert(tree.begin() + static_cast<long>(index), Node{section, {object}});
        log.push_back("insert section " + std::to_string(index));
    }

    void updateObject(const Row& object) {
        IndexPath path;
        if (!find(object, path)) return appendObject(object);
        tree[path.section].items[path.row] = object;
        log.push_back("reload row " + text(path));
    }

    void removeObject(const Row& object) {
        IndexPath path;
        if (!find(object, path)) return;
        take(path);
        if (!tree[path.section].items.empty()) {
            log.push_back("delete row " + text(path));
            return;
        }
        tree.erase(tree.begin() + static_cast<long>(path.section));
        log.push_back("delete section " + std::to_string(path.section));
    }

    void sortData() {
        const auto target = build(objects());
        for (const auto& node : target) {
            if (indexOfSection(node.object) < tree.size()) continue;
            const auto index = newIndex(sections(), node.object, sectionBefore);
            tree.insert(tree.begin() + static_cast<long>(index), Node{node.object, {}});
            log.push_back("insert section " + std::to_string(index));
        }
        for (const auto& node : target) {
            const auto section = indexOfSection(node.object);
            for (std::size_t row = 0; row < node.items.size(); ++row) {
                IndexPath from;
                find(node.items[row], from);
                if (from == IndexPath{section, row}) continue;
                const auto object = take(from);
                auto& items = tree[section].items;
                items.insert(items.begin() + static_cast<long>(std::min(row, items.size())), object);
                log.push_back("move row " + text(from) + " to " + text({section, row}));
            }
        }
        for (std::size_t index = 0; index < tree.size();) {
            if (!tree[index].items.empty()) {
                ++index;
                continue;
            }
            tree.erase(tree.begin() + static_cast<long>(index));
            log.push_back("delete section " + std::to_string(index));
        }
    }

    std::vector<Row> objects() const {
        std::vector<Row> result;
        for (const auto& node : tree) result.insert(result.end(), node.items.begin(), node.items.end());
        return result;
    }

    std::vector<Section> sections() const {
        std::vector<Section> result;
        for (const auto& node : tree) result.push_back(node.object);
        return result;
    }

private:
    template <class T>
    static std::size_t newIndex(const std::vector<T>& objects, const T& object,
                                const std::function<bool(const T&, const T&)>& before) {
        if (!before) return 0;
        std::size_t index = 0;
        while (index < objects.size() && !before(object, objects[index])) ++index;
        return index;
    }

    /// Each element goes behind the last that it does not have to stand before.
    template <class T>
    static std::vector<T> sorted(const std::vector<T>& objects, const std::function<bool(const T&, const T&)>& before) {
        if (!before) return objects;
        std::vector<T> result;
        for (const auto& object : objects) {
            auto place = result.end();
            while (place != result.begin() && before(object, *(place - 1)) && !before(*(place - 1), object)) --place;
            result.insert(place, object);
        }
        return result;
    }

    std::vector<Node> build(const std::vector<Row>& objects) const {
        std::vector<Node> groups;
        for (const auto& object : objects) {
            const auto section = sectionForObject(object);
            auto group = std::find_if(groups.begin(), groups.end(), [&](const Node& n) { return n.object == section; });
            if (group == groups.end()) group = groups.insert(groups.end(), Node{section, {}});
            group->items.push_back(object);
        }
        std::vector<Section> order;
        for (const auto& group : groups) order.push_back(group.object);
        std::vector<Node> result;
        for (const auto& section : sorted(order, sectionBefore))
            for (const auto& group : groups)
                if (group.object == section) result.push_back({section, sorted(group.items, rowBefore)});
        return result;
    }

    std::size_t indexOfSection(const Section& section) const {
        std::size_t index = 0;
        while (index < tree.size() && !(tree[index].object == section)) ++index;
        return index;
    }

    bool find(const Row& object, IndexPath& path) const {
        for (path.section = 0; path.section < tree.size(); ++path.section)
            for (path.row = 0; path.row < tree[path.section].items.size(); ++path.row)
                if (tree[path.section].items[path.row] == object) return true;
        return false;
    }

    Row take(IndexPath path) {
        auto& items = tree[path.section].items;
        const Row object = items[path.row];
        items.erase(items.begin() + static_cast<long>(path.row));
        return object;
    }
};

}  // namespace dayward
