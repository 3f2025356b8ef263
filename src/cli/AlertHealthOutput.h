// Whether alerts will come, as the command line tells it.
#pragma once

#include "cli/Output.h"

namespace dayward {

class Environment;
struct AlertHealth;

JSON alertHealthJSON(const AlertHealth& health);
/// In plain words, with the next alerts.
void printAlertHealth(const Environment& environment, const AlertHealth& health);

}  // namespace dayward
