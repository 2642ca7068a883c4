#include "tools/quorcalc/line_reader.h"

#include <algorithm>
#include <utility>

namespace quor::quorcalc {

namespace {

constexpr std::streamsize kMostAtOnce = 1 << 16;

}  // namespace

LineReader::LineReader(std::istream& source, std::function<void()> before_waiting)
    : source_(source.rdbuf()), before_waiting_(std::move(before_waiting)) {}

bool LineReader::read_more() {
    using Traits = std::streambuf::traits_type;
    before_waiting_();
    text_.erase(0, from_);
    from_ = 0;
    // One character waits for the writer; what has come with it is there at once.
    const auto first = source_->sbumpc();
    if (Traits::eq_int_type(first, Traits::eof())) return false;
    text_ += Traits::to_char_type(first);
    const std::streamsize ready = std::min(source_->in_avail(), kMostAtOnce);
    if (ready <= 0) return true;
    const std::size_t had = text_.size();
    text_.resize(had + static_cast<std::size_t>(ready));
    const std::streamsize got = source_->sgetn(text_.data() + had, ready);
    text_.resize(had + static_cast<std::size_t>(std::max<std::streamsize>(got, 0)));
    return true;
}

bool LineReader::next(std::string& line) {
    std::size_t end = text_.find('\n', from_);
    while (end == std::string::npos) {
        const std::size_t searched = text_.size() - from_;
        if (!read_more()) {
            line = std::exchange(text_, {});
            return !line.empty();
        }
        end = text_.find('\n', searched);
    }
    line.assign(text_, from_, end - from_);
    from_ = end + 1;
    return true;
}

}  // namespace quor::quorcalc
