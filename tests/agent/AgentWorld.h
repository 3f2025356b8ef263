// A home with events, an application that schedules their alerts, a service that shows them, and agents between them
// whose clock the test drives.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "agent/AgentProcess.h"
#include "platform/Archivable.h"
#include "platform/NotificationSchedule.h"
#include "platform/linux/LinuxFileSystem.h"

namespace dayward {

/// Schedules what is to come of the events that stand in a file of the home: the application's refresh.
Result<> refreshSchedule(const std::string& home, double now);
/// Where the clock is that drives the agents of the home. One of them that was killed may have left a program behind,
/// which must not schedule as of a moment that has gone by.
double presentMoment(const std::string& home);

class AgentWorld {
public:
    /// In a fresh directory, with the agent's program and, as "dayward" beside it, this test's.
    AgentWorld(const std::string& agentProgram, unsigned seed);
    ~AgentWorld();

    // Time, in seconds since 1970. Each returns once the agents that live have done everything.
    [[nodiscard]] double now() const { return now_; }
    /// The time goes by; the application refreshes in between.
    void pass(double seconds);
    /// The device sleeps, or the clock is set forward or back.
    void jump(double seconds);

    /// Alerts in the next seconds, at random moments, several at some.
    void addAlerts(std::size_t count, double within);
    [[nodiscard]] std::size_t alerts() const { return due_.size(); }
    void start(std::size_t agents);
    /// While the next step is done, agents are killed at random moments and started again.
    void killDuringNextStep() { kills_ = true; }
    void fillDisk(bool isFull);
    /// The schedule's file is cut, overwritten or removed.
    void damageSchedule();
    /// Its copy too, which only the events can make good. Returns once an agent has seen to it.
    void breakSchedule();

    /// What is wrong: alerts that were lost, shown early, shown twice or out of order, agents that crashed.
    [[nodiscard]] std::vector<std::string> faults();
    [[nodiscard]] std::string counts() const;

private:
    struct Bubble {
        std::vector<int> showers;  ///< the agents' numbers, each time that it was shown
    };
    struct Agent;

    void command(const std::string& kind, double to);
    void refresh();
    [[nodiscard]] std::vector<std::optional<Date>> datesToCome() const;
    void damage(const char* name, unsigned kind);
    void settle();
    void waitForAll();
    void killSome();
    void restart(Agent& agent);
    void read(Agent& agent);
    void readShow(Agent& agent, const std::vector<std::string>& words);
    void note(Agent& agent, const std::string& key);
    void fault(const std::string& text) { faults_.push_back(text); }

    std::mt19937 random_;
    std::string directory_, home_, clock_, program_;
    const std::shared_ptr<LinuxFileSystem> files_ = std::make_shared<LinuxFileSystem>();
    const std::shared_ptr<const ArchiveClasses> classes_ = std::make_shared<ArchiveClasses>();
    std::unique_ptr<NotificationSchedule> schedule_;
    double now_ = 1800000000;
    int commands_ = 0;
    bool kills_ = false;
    std::map<std::string, double> due_;  ///< of each alert, by its key
    std::map<std::string, Bubble> bubbles_;
    std::map<int, bool> wasKilled_;  ///< of each agent that there was
    std::deque<Agent> agents_;
    std::vector<std::string> faults_;
    int killCount_ = 0, again_ = 0, digests_ = 0, damages_ = 0, full_ = 0, set_ = 0;
    double latest_ = 0;  ///< what is due until then is to be shown
};

}  // namespace dayward
