#include "Submodules/CorpLibrary2/App/CCAppHistory.h"

#include "Submodules/CorpLibrary2/Foundation/ArchivedFile.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"

namespace dayward {

namespace {

CCEventHistory load(Environment& environment, const std::string& path) {
    const auto root = readArchivedFile(environment, path);
    if (!root) environment.log().error("CCAppHistory read: " + path + ", error: " + root.error().description());
    const auto history = root && *root ? (*root)->as<CCEventHistory>() : nullptr;
    return history ? *history : CCEventHistory();
}

}  // namespace

CCAppHistory::CCAppHistory(Environment& environment)
    : environment_(environment),
      path_(joinPath(environment.paths().library, "CCAppHistory.dat")),
      history_(load(environment, path_)) {}

CCAppHistory& CCAppHistory::shared() { return Environment::current().shared<CCAppHistory>(); }

void CCAppHistory::change(Change change) {
    const Lock lock(mutex_);
    change(history_);
    changes_.push_back(std::move(change));
}

void CCAppHistory::addEvent(const std::string& event) { addEvent(event, std::nullopt); }

void CCAppHistory::addEvent(const std::string& event, std::optional<Dictionary> userInfo) {
    addEvent(event, std::move(userInfo), Environment::current().now());
}

void CCAppHistory::addEvent(const std::string& event, std::optional<Dictionary> userInfo, Date date) {
    shared().change([=](CCEventHistory& history) { history.addEvent(event, userInfo, date); });
}

std::size_t CCAppHistory::countEvent(const std::string& event, std::optional<Date> fromDate,
                                     std::optional<Date> toDate) {
    auto& self = shared();
    const Lock lock(self.mutex_);
    return self.history_.countEvent(event, fromDate, toDate);
}

bool CCAppHistory::containsEvent(const std::string& event) {
    auto& self = shared();
    const Lock lock(self.mutex_);
    return self.history_.containsEvent(event);
}

std::optional<Date> CCAppHistory::dateToLastEvent(const std::string& event, std::int64_t offset) {
    auto& self = shared();
    const Lock lock(self.mutex_);
    return self.history_.dateToLastEvent(event, offset);
}

void CCAppHistory::removeEvent(const std::string& event) {
    shared().change([=](CCEventHistory& history) { history.removeEvent(event); });
}

void CCAppHistory::removeAllEvents() {
    shared().change([](CCEventHistory& history) { history.removeAllEvents(); });
}

void CCAppHistory::synchronize() {
    auto& self = shared();
    const Lock lock(self.mutex_);
    const Result<> written = self.write();
    if (written) return;
    self.environment_.log().error("CCAppHistory writeToFile: " + self.path_ +
                                  ", error: " + written.error().description());
}

Result<> CCAppHistory::write() {
    const auto merge = [own = &history_, changes = &changes_,
                        attempt = &attempt_](const std::optional<Object>& present) -> Object {
        auto content = present ? present->as<CCEventHistory>() : nullptr;
        if (content && attempt->content && attempt->content->isEqual(*content)) {
            changes->erase(changes->begin(), changes->begin() + attempt->changeCount);
        }
        if (!content) {
            content = std::make_shared<CCEventHistory>(*own);
        } else {
            for (const auto& change : *changes) change(*content);
        }
        *attempt = {content, std::ssize(*changes)};
        return content;
    };
    const auto root = TRY(updateArchivedFile(environment_, path_, merge));
    history_ = *root.as<CCEventHistory>();
    changes_.clear();
    attempt_ = {};
    return {};
}

}  // namespace dayward
