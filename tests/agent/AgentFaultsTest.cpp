// Every alert is shown once, whatever happens to the agents, the clock, the disk and the schedule.
//
// DAYWARD_AGENT_ALERTS is how many alerts; DAYWARD_AGENT_SEED, where the random moments begin.
#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "agent/AgentWorld.h"

namespace dayward {
namespace {

std::string agentProgram() {
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "dayward-agent").string();
}

std::size_t numberOf(const char* variable, std::size_t otherwise) {
    const char* text = std::getenv(variable);
    return text != nullptr ? std::strtoul(text, nullptr, 10) : otherwise;
}

/// One of the things that happen, and what goes by with it. Agents are killed meanwhile, or are not.
void happen(AgentWorld& world, std::mt19937& random) {
    const auto perhapsKill = [&] {
        if (random() % 3 != 0) world.killDuringNextStep();
    };
    switch (random() % 8) {
        case 0:  // a sleep
            perhapsKill();
            world.jump(400);
            break;
        case 1:  // the clock is set back, and everything is scheduled anew
            world.jump(-200);
            perhapsKill();
            world.pass(350);
            break;
        case 2:  // the copy stands in
            world.damageSchedule();
            perhapsKill();
            world.pass(300);
            break;
        case 3:  // only the events know what was scheduled
            world.breakSchedule();
            perhapsKill();
            world.pass(300);
            break;
        case 4:  // on which the schedule cannot get room for more either
            world.start(1);
            world.pass(300);
            world.addAlerts(40, 250);
            world.fillDisk(true);
            world.pass(200);
            world.fillDisk(false);
            world.pass(100);
            world.start(2);
            break;
        case 5:
            world.start(1 + random() % 2);
            world.pass(250);
            break;
        default:
            perhapsKill();
            world.pass(300);
    }
}

TEST(AgentFaultsTest, EveryAlertIsShownOnce) {
    const std::size_t alerts = numberOf("DAYWARD_AGENT_ALERTS", 1500);
    const auto seed = static_cast<unsigned>(numberOf("DAYWARD_AGENT_SEED", std::random_device()()));
    std::cout << "seed " << seed << std::endl;
    std::mt19937 random(seed);
    AgentWorld world(agentProgram(), seed);
    world.start(2);
    while (world.alerts() < alerts) {
        world.addAlerts(10 + random() % 54, 250);
        happen(world, random);
        ASSERT_THAT(world.faults(), testing::IsEmpty()) << world.counts();
    }
    world.start(2);
    world.pass(1000);
    ASSERT_THAT(world.faults(), testing::IsEmpty()) << world.counts();
    std::cout << world.counts() << std::endl;
}

}  // namespace
}  // namespace dayward

/// As "dayward --home HOME … notifications refresh", it is the application of the events of this test.
int main(int argc, char** argv) {
    using namespace dayward;
    if (std::filesystem::path(argv[0]).filename() == "dayward" && argc > 2) {
        return refreshSchedule(argv[2], presentMoment(argv[2])) ? 0 : 1;
    }
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
