#include "report/result_view.h"

#include "report/titles.h"

namespace quor::report {

using calculation::Task;

namespace {

bool is_without_list(Task task) {
    return task == Task::virial || is_database_function(task);
}

}  // namespace

std::string input_caption(std::size_t data_set) {
    return data_set > 0 ? " Specification value from set #" + std::to_string(data_set)
                        : " Specification value from input ";
}

ResultView describe_result_view(Task task, const calculation::Method& method, bool batch) {
    ResultView view;
    view.title = title_of(task, method);
    view.caption = caption_of(task, method);
    view.ok_caption = batch ? "=>Load" : "Close";
    view.step_visible = batch;
    view.result_output_visible = batch && !is_without_list(task);
    view.protocol_visible = !is_tank(task);
    view.wide = task == Task::process;
    view.extended_visible = !is_vaporisation(task) && !is_without_list(task);
    view.extended_enabled = !is_equilibrium(task) || method.global;
    return view;
}

}  // namespace quor::report
