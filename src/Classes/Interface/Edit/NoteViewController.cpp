#include "Classes/Interface/Edit/NoteViewController.h"

#include "platform/Strings.h"

namespace dayward {

NoteViewController::NoteViewController(std::string note, Completion completionBlock)
    : note_(std::move(note)), completionBlock_(std::move(completionBlock)) {
    setTitle(localized("Note"));
}

void NoteViewController::viewWillDisappear(Disappearance) { completionBlock_(note_); }

std::vector<TableSection> NoteViewController::makeSections() {
    TableRow row = textAreaRow("note", localized("Note"), {note_}, [this](const std::string& text) { note_ = text; });
    row.startsFocused = true;
    return {{"note", {}, {}, {std::move(row)}}};
}

}  // namespace dayward
