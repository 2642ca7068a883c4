#include "report/result_view.h"

#include "report/titles.h"

namespace quor::report {

using calculation::Task;

namespace {

bool is_without_list(Task task) {
    return task == Task::virial || is_database_function(task);
}

}  // namespace

std::string input_caption(std::size_t dataSet) {
    return dataSet > 0 ? " Specification value from set #" + std::to_string(dataSet)
                       : " Specification value from input ";
}

ResultView describe_result_view(Task task, const calculation::Method& method, bool batch) {
    ResultView view;
    view.title = title_of(task, method);
    view.caption = caption_of(task, method);
    view.okCaption = batch ? "=>Load" : "Close";
    view.stepVisible = batch;
    view.resultOutputVisible = batch && !is_without_list(task);
    view.protocolVisible = !is_tank(task);
    view.wide = task == Task::process;
    view.extendedVisible = !is_vaporisation(task) && !is_without_list(task);
    view.extendedEnabled = !is_equilibrium(task) || method.global;
    return view;
}

}  // namespace quor::report
