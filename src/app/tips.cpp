#include "app/tips.h"

#include <fstream>
#include <sstream>

#include "common/dialogs.h"
#include "common/text.h"
#include "legacy/declare.h"
#include "session/module2.h"

namespace quor::session {

std::string TipsFile() {
    return legacy::the_session.EnglishUi ? "QUORTIPS_E.TXT" : "QUORTIPS.TXT";
}

Tips LoadTips(std::uint32_t randomNumber) {
    Tips tips;
    const std::string name = TipsFile();
    std::ifstream in(FindFile(name), std::ios::binary);
    if (!in) {
        tips.missing = true;
        dialogs::Tell("The file " + name + "not found in the QUOR directory ", "Tips");
        return tips;
    }
    std::ostringstream content;
    content << in.rdbuf();
    for (std::string& line : text::Lines(text::FromAnsi(content.str())))
        if (!text::Trim(line).empty()) tips.lines.push_back(std::move(line));
    if (!tips.lines.empty()) tips.current = randomNumber % tips.lines.size();
    return tips;
}

const std::string& CurrentTip(const Tips& tips) {
    static const std::string none;
    return tips.lines.empty() ? none : tips.lines[tips.current];
}

void NextTip(Tips& tips) {
    if (!tips.lines.empty()) tips.current = (tips.current + 1) % tips.lines.size();
}

bool TipsStayHidden(bool showAtStartup, bool requested) {
    return !showAtStartup && !requested;
}

}  // namespace quor::session
