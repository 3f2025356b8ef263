// A display of lines on standard output, and an application that does not run: for tests.
//
//   show KEY SECONDS now|late BODY       due then, since 1970
//   digest KEY KEY …
//   withdraw KEY
//   badge NUMBER
//   open BODY
#pragma once

#include "agent/ApplicationLink.h"
#include "agent/NotificationDisplay.h"
#include "agent/Surroundings.h"

namespace dayward {

class LineDisplay final : public NotificationDisplay {
public:
    void setListener(NotificationDisplayListener*) override {}
    Result<> show(const DueAlert& alert) override;
    Result<> showDigest(const std::vector<DueAlert>& alerts) override;
    void withdraw(const std::string& key) override;
    void setBadgeNumber(std::int64_t number) override;
};

class LineLink final : public ApplicationLink {
public:
    bool deliver(const LocalNotification&) override { return false; }
    bool deliverDigest(const std::vector<DueAlert>&) override { return false; }
    Result<> open(const LocalNotification& notification) override;
    void performFetch(std::function<void(bool)> done) override { done(false); }
};

class LineSurroundings final : public Surroundings {
public:
    [[nodiscard]] NotificationDisplay& display() override { return display_; }
    [[nodiscard]] ApplicationLink& link() override { return link_; }
    [[nodiscard]] EventSource* events() override { return nullptr; }
    Result<bool> serve(AgentRequests&) override { return true; }
    [[nodiscard]] bool isOver() const override { return false; }

private:
    LineDisplay display_;
    LineLink link_;
};

}  // namespace dayward
