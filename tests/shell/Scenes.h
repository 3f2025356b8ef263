// The screens that pictures are taken of, each reached as a user does.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shell/Shell.h"

namespace dayward {

struct Scene {
    std::string name;
    std::function<void(Shell&)> show;
};

std::vector<Scene> scenes();

}  // namespace dayward
