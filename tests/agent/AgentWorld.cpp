#include "agent/AgentWorld.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "agent/DeliveryKey.h"
#include "alerts/EventNotification.h"
#include "platform/Paths.h"

namespace dayward {

namespace fs = std::filesystem;

namespace {

constexpr const char* kEvents = "/events";
constexpr const char* kClock = "/clock";
/// After so long an agent has looked whether another one still lives.
constexpr double kTakingOver = 11;

LocalNotification alertOf(double due, const std::string& body) {
    LocalNotification alert;
    alert.fireDate = Date::since1970(due);
    alert.timeZone = "UTC";
    alert.alertBody = body;
    setEventIdentifier(alert, "event of " + body);
    return alert;
}

std::string stateOf(const std::string& home) { return Paths::resolve(home, {}).state; }

/// In memory where that is: a full synchronisation of a disk for each of thousands of alerts takes minutes.
std::string freshDirectory() {
    const std::string parent = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : fs::temp_directory_path().string();
    std::string path = parent + "/dayward-agent-XXXXXX";
    return mkdtemp(path.data());
}

void replace(const std::string& path, const std::string& text) {
    std::ofstream(path + ".new") << text << '\n';
    fs::rename(path + ".new", path);
}

}  // namespace

Result<> refreshSchedule(const std::string& home, double now) {
    NotificationSchedule schedule(std::make_shared<LinuxFileSystem>(), std::make_shared<ArchiveClasses>(), stateOf(home));
    std::vector<std::pair<double, std::string>> events;
    std::ifstream file(home + kEvents);
    double due = 0;
    for (std::string body; file >> due >> body;) {
        if (due >= now) events.emplace_back(due, body);
    }
    std::ranges::stable_sort(events, {}, &std::pair<double, std::string>::first);
    return schedule.change([&](NotificationSchedule::Content& content) {
        for (const auto& [moment, body] : events) content.schedule(alertOf(moment, body));
    });
}

double presentMoment(const std::string& home) {
    std::ifstream file(home + kClock);
    std::string number, kind;
    double seconds = 0;
    file >> number >> kind >> seconds;
    return seconds;
}

struct AgentWorld::Agent {
    std::unique_ptr<AgentProcess> process;
    int done = 0;          ///< the last command that it has carried out
    double lastShown = 0;  ///< by this process, on time, since the clock was set
};

AgentWorld::AgentWorld(const std::string& agentProgram, unsigned seed)
    : random_(seed), directory_(freshDirectory()), home_(directory_ + "/home"), clock_(home_ + kClock) {
    fs::create_directories(stateOf(home_));
    fs::create_directories(directory_ + "/bin");
    program_ = directory_ + "/bin/dayward-agent";
    fs::copy_file(agentProgram, program_);
    fs::copy_file(fs::read_symlink("/proc/self/exe"), directory_ + "/bin/dayward");
    schedule_ = std::make_unique<NotificationSchedule>(files_, classes_, stateOf(home_));
    latest_ = now_;
    command("jump", now_);
}

AgentWorld::~AgentWorld() {
    if(getenv("TRACE")&&!faults_.empty()) system(("rm -rf /tmp/faildir; cp -r "+directory_+" /tmp/faildir").c_str());
    agents_.clear();
    fs::remove_all(directory_);
}

void AgentWorld::addAlerts(std::size_t count, double within) {
    std::uniform_int_distribution<int> moment(1, static_cast<int>(within));
    std::ofstream events(home_ + kEvents, std::ios::app);
    for (std::size_t i = 0; i < count; ++i) {
        const double due = now_ + moment(random_);
        const std::string body = "alert-" + std::to_string(due_.size());
        events << std::fixed << due << ' ' << body << '\n';
        due_[deliveryKey(alertOf(due, body))] = due;
    }
    events.close();
    refresh();
}

void AgentWorld::refresh() {
    if (!refreshSchedule(home_, now_)) fault("the application could not refresh");
}

// The agents

void AgentWorld::start(std::size_t agents) {
    while (agents_.size() > agents) {
        agents_.back().process->kill();
        read(agents_.back());
        wasKilled_[agents_.back().process->number()] = true;
        agents_.pop_back();
    }
    while (agents_.size() < agents) restart(agents_.emplace_back());
    settle();
}

void AgentWorld::restart(Agent& agent) {
    agent.process = std::make_unique<AgentProcess>(program_, home_, clock_, directory_ + "/errors");
    agent.done = 0;
    agent.lastShown = 0;
    wasKilled_[agent.process->number()] = false;
}

void AgentWorld::read(Agent& agent) {
    for (const std::string& line : agent.process->lines()) {
        std::istringstream text(line);
        std::vector<std::string> words;
        for (std::string word; text >> word;) words.push_back(word);
        if (words.front() == "done") agent.done = std::stoi(words[1]);
        if (words.front() == "show") readShow(agent, words);
        if (words.front() == "digest") {
            ++digests_;
            for (std::size_t i = 1; i < words.size(); ++i) note(agent, words[i]);
        }
    }
}

void AgentWorld::readShow(Agent& agent, const std::vector<std::string>& words) {
    const std::string& key = words[1];
    const double due = std::stod(words[2]);
    if (bubbles_[key].showers.empty() && words[3] == "now") {
        if (due < agent.lastShown && agents_.size() == 1) fault("out of order: " + words[4]);
        agent.lastShown = due;
    }
    note(agent, key);
}

void AgentWorld::note(Agent& agent, const std::string& key) {
    const auto due = due_.find(key);
    if (due == due_.end()) return fault("of no event: " + key);
    if (due->second > std::max(now_, latest_)) fault("early: " + key);
    std::vector<int>& showers = bubbles_[key].showers;
    if (!showers.empty()) {
        ++again_;
        if (!wasKilled_[showers.back()]) fault("twice: " + key);
    }
    showers.push_back(agent.process->number());
}

void AgentWorld::killSome() {
    std::uniform_int_distribution<int> microseconds(0, 4000), count(1, 4);
    for (int left = count(random_); left > 0; --left) {
        usleep(static_cast<useconds_t>(microseconds(random_)));
        Agent& agent = agents_[random_() % agents_.size()];
        wasKilled_[agent.process->number()] = true;
        agent.process->kill();
        ++killCount_;
        read(agent);
        restart(agent);
    }
}

void AgentWorld::settle() {
    const bool kills = std::exchange(kills_, false) && !agents_.empty();
    if (kills) killSome();
    waitForAll();
    // An agent that had done everything may have taken over from one that was killed after that.
    if (!kills || !faults_.empty()) return;
    refresh();
    command("pass", now_ + kTakingOver);
    latest_ = std::max(latest_, now_);
    waitForAll();
}

void AgentWorld::waitForAll() {
    for (Agent& agent : agents_) {
        while (agent.done != commands_) {
            const bool isAlive = agent.process->waitForLines();
            read(agent);
            if (agent.process->hasEnded()) {
                fault("an agent crashed");
                return;
            }
            if (!isAlive) {
                fault("an agent is stuck");
                return;
            }
        }
    }
}

// Time

void AgentWorld::command(const std::string& kind, double to) {
    now_ = to;
    replace(clock_, std::to_string(++commands_) + " " + kind + " " + std::to_string(to));
}

void AgentWorld::pass(double seconds) {
    const double end = now_ + seconds;
    const bool kills = kills_;
    while (now_ < end && faults_.empty()) {
        kills_ = kills;
        refresh();
        const auto scheduled = schedule_->read().value_or(NotificationSchedule::Content()).scheduled;
        const bool isFull = scheduled.size() == 64;
        command("pass", isFull ? std::min(end, scheduled.back().fireDate->secondsSince1970()) : end);
        latest_ = std::max(latest_, now_);
        settle();
    }
}

void AgentWorld::jump(double seconds) {
    const auto scheduled = schedule_->read().value_or(NotificationSchedule::Content()).scheduled;
    double to = now_ + seconds;
    if (scheduled.size() == 64) to = std::min(to, scheduled.back().fireDate->secondsSince1970());
    for (Agent& agent : agents_) agent.lastShown = 0;
    ++set_;
    latest_ = std::max(latest_, to);
    command("jump", to);
    settle();
}

// Faults

void AgentWorld::fillDisk(bool isFull) {
    full_ += isFull ? 1 : 0;
    for (Agent& agent : agents_) agent.process->limitFiles(isFull);
}

void AgentWorld::damage(const char* name, unsigned kind) {
    const std::string path = stateOf(home_) + "/" + name;
    std::error_code error;
    switch (kind) {
        case 0:
            std::ofstream(path) << "no archive";
            break;
        case 1:
            fs::resize_file(path, fs::file_size(path, error) / 2, error);
            break;
        default:
            fs::remove(path, error);
    }
}

void AgentWorld::damageSchedule() {
    ++damages_;
    damage(NotificationSchedule::kFileName, random_() % 3);
}

/// When what is scheduled will fire. Of two at one moment either may be the last that finds room.
std::vector<std::optional<Date>> AgentWorld::datesToCome() const {
    std::vector<std::optional<Date>> dates;
    const auto content = schedule_->read().value_or(NotificationSchedule::Content());
    for (const LocalNotification& alert : content.scheduled) {
        if (alert.fireDate > Date::since1970(now_)) dates.push_back(alert.fireDate);
    }
    return dates;
}

void AgentWorld::breakSchedule() {
    ++damages_;
    const auto before = datesToCome();
    damage(NotificationSchedule::kCopyName, random_() % 2);
    damage(NotificationSchedule::kFileName, random_() % 2);
    command("pass", now_);
    settle();
    if (datesToCome() != before) fault("not rebuilt");
}

std::vector<std::string> AgentWorld::faults() {
    for (const auto& [key, due] : due_) {
        if (due <= latest_ && !bubbles_.contains(key)) fault("lost: " + key + ", due " + std::to_string(due));
    }
    return faults_;
}

std::string AgentWorld::counts() const {
    std::ostringstream text;
    text << bubbles_.size() << " alerts shown, " << digests_ << " digests, " << killCount_ << " kills, " << again_
         << " shown again in place of themselves after a kill, " << set_ << " clock changes, " << damages_
         << " damaged schedules, " << full_ << " full disks";
    std::ifstream errors(directory_ + "/errors");
    for (std::string line; std::getline(errors, line);) text << "\nan agent said: " << line;
    return text.str();
}

}  // namespace dayward
