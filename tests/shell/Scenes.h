// The screens that pictures are taken of, each reached as a user does.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Classes/Interface/Events/HHSplitViewController.h"
#include "shell/Shell.h"

namespace dayward {

/// What the scenes play on.
struct Stage {
    Shell& shell;
    EventListViewController& list;
};

struct Scene {
    std::string name;
    std::function<void(Stage&)> show;
};

std::vector<Scene> scenes();
/// Those with events of their own: of today, missed, with long texts; and with none at all.
std::vector<Scene> eventfulScenes();
/// Brings the events back to what they were before such a scene.
void leaveEventfulScene();

}  // namespace dayward
