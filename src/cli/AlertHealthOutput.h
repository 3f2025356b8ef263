// Whether alerts will come, as the command line tells it.
#pragma once

namespace dayward {

struct AlertHealth;

void printAlertHealth(const AlertHealth& health, bool json);

}  // namespace dayward
