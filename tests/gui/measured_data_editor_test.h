#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "gui/calc_view_test.h"
#include "gui/editor_drive.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

/// The editor of measured data in a project of carbon dioxide.
class MeasuredDataEditorTest : public CalcViewTest {
  protected:
    MeasuredDataEditorTest() { startProject("Carbon dioxide"); }

    /// The editor with three lines: T and p falling, and one value of each other column.
    void openWithData() {
        useData({{0, 280, 300, 5.5F, 900, 0, 0},
                 {0, 270, 200, 4.5F, 950, 10000, 0},
                 {0, 290, 100, 3.5F, 850, 0, 80}});
        drive::choose("mnuData_BatchEdit");
        user.messages.clear();
    }

    /// A line of the session's data, counted from 1.
    datafiles::MeasuredPoint set(int line) const {
        return session->measured.points.at(static_cast<std::size_t>(line - 1));
    }
    std::size_t count() const { return session->measured.points.size(); }

    /// Types the six input fields in the order of the columns.
    static void typeInput(std::initializer_list<const char*> texts) {
        int i = 0;
        for (const char* text : texts) drive::type(QString("txtInput_%1").arg(i++), text);
    }

    std::vector<double> temperatures() const {
        std::vector<double> all;
        for (const datafiles::MeasuredPoint& one : session->measured.points) all.push_back(one.T);
        return all;
    }

    std::string path(const char* name) const { return (folder() / name).string(); }
};

inline constexpr auto kGrid = "grdTpV";
