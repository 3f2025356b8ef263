// Takes over the events of the program's sibling edition on this device. Main thread.
#pragma once

#include <string>

namespace dayward {

class SiblingImportService {
public:
    virtual ~SiblingImportService() = default;
    /// The sibling edition is there and can be asked.
    [[nodiscard]] virtual bool canImportFromFreeVersion() const = 0;
    /// Asks it; its events come later, by a URL.
    virtual void performImportFromFreeVersion() = 0;
    /// Whether the URL was a request or an answer of a sibling, and was taken.
    virtual bool handleOpenURL(const std::string& url) = 0;
};

/// There is no sibling edition.
class NoSiblingImport final : public SiblingImportService {
public:
    [[nodiscard]] bool canImportFromFreeVersion() const override { return false; }
    void performImportFromFreeVersion() override {}
    bool handleOpenURL(const std::string&) override { return false; }
};

}  // namespace dayward
