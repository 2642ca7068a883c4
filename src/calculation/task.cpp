#include "calculation/task.h"

namespace quor::calculation {

unsigned asks_of(Task task) {
    switch (task) {
        case Task::pressureOfVapour:
        case Task::pressureOfLiquid:
            return kAsksT | kAsksRho;
        case Task::state:
        case Task::functions:
            return kAsksT | kAsksP;
        case Task::temperature:
            return kAsksP | kAsksRho;
        case Task::saturationAtP:
        case Task::vaporisationAtP:
            return kAsksP;
        case Task::none:
        case Task::globalTank:
        case Task::partialTank:
        case Task::process:
            return kAsksNothing;
        default:
            return kAsksT;
    }
}

bool is_tank(Task task) {
    return task == Task::globalTank || task == Task::partialTank;
}

bool is_equilibrium(Task task) {
    return task == Task::saturationAtT || task == Task::saturationAtP;
}

bool is_vaporisation(Task task) {
    return task == Task::vaporisationAtT || task == Task::vaporisationAtP;
}

bool is_database_function(Task task) {
    return task >= Task::liquidDensity && task <= Task::solidDensity;
}

}  // namespace quor::calculation
