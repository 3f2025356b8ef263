// About the program: its version, where to learn more, and the licences of what is in it. Main thread
// only.
#pragma once

#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class InformationViewController final : public TableScreen {
public:
    InformationViewController();

protected:
    std::vector<TableSection> makeSections() override;
};

/// The texts of the licences, a row for each block of the file.
class LicencesViewController final : public TableScreen {
public:
    /// The program's own file of them, without its extension, and that.
    static constexpr const char* kFileName = "licences";
    static constexpr const char* kFileType = "txt";

    LicencesViewController();

protected:
    std::vector<TableSection> makeSections() override;
};

}  // namespace dayward
