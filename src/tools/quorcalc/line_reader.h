#pragma once

#include <functional>
#include <istream>
#include <string>
#include <string_view>

namespace quor::quorcalc {

/// Lines of a stream, of which a program may read on while another one writes them.
class LineReader {
  public:
    /// `before_waiting` is called each time before the stream is asked for more: it may have to
    /// wait for whoever writes it, who may be waiting for what the lines so far have brought about.
    LineReader(std::istream& source, std::function<void()> before_waiting);

    /// The next line without its end; false at the end of the stream.
    bool next(std::string& line);

  private:
    bool read_more();

    std::streambuf* source_;
    std::function<void()> before_waiting_;
    std::string text_;      ///< what was read last
    std::size_t from_ = 0;  ///< in it, of what is still to come
};

}  // namespace quor::quorcalc
