#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "chart/chart_style.h"
#include "chart/palette.h"

/// Helpers of the metafile writers.
namespace quor::chart::metafile {

/// Little-endian bytes.
class Bytes {
  public:
    void u8(std::uint8_t value) { data_.push_back(value); }
    void u16(std::uint32_t value) {
        u8(static_cast<std::uint8_t>(value & 0xFF));
        u8(static_cast<std::uint8_t>(value >> 8 & 0xFF));
    }
    void i16(std::int32_t value) { u16(static_cast<std::uint32_t>(value) & 0xFFFF); }
    void u32(std::uint32_t value) {
        u16(value & 0xFFFF);
        u16(value >> 16);
    }
    void i32(std::int32_t value) { u32(static_cast<std::uint32_t>(value)); }
    void zeros(std::size_t count) { data_.insert(data_.end(), count, 0); }
    void pad_to(std::size_t multiple) {
        while (data_.size() % multiple != 0) data_.push_back(0);
    }
    void append(const Bytes& other) {
        data_.insert(data_.end(), other.data_.begin(), other.data_.end());
    }
    std::size_t size() const { return data_.size(); }
    const std::vector<std::uint8_t>& data() const { return data_; }

  private:
    std::vector<std::uint8_t> data_;
};

/// COLORREF of a colour without its alpha.
inline std::uint32_t color_ref(const Colour& c) {
    return static_cast<std::uint32_t>(c.r) | static_cast<std::uint32_t>(c.g) << 8 |
           static_cast<std::uint32_t>(c.b) << 16;
}

/// What a metafile paints for a colour: translucent ones lie over white paper.
inline Colour on_paper(const Colour& c) {
    return over(c, kWhite);
}

// Values of the formats that both have in common.
inline constexpr std::uint32_t kTransparentBackground = 1;
inline constexpr std::uint32_t kFillAlternate = 1, kFillWinding = 2;
inline constexpr std::uint32_t kCopyPen = 13, kMaskPen = 9;  // binary raster operations
inline constexpr std::uint32_t kAlignBaseline = 24;
inline constexpr std::uint32_t kAnisotropic = 8;
inline constexpr std::uint32_t kNormalWeight = 400, kBoldWeight = 700;
inline constexpr std::uint32_t kPenNull = 5;
inline constexpr std::uint32_t kBrushSolid = 0, kBrushNull = 1;

}  // namespace quor::chart::metafile
