#pragma once
// Measures node titles with Qt's fonts the way the chart draws them: the sum of the characters'
// advances (the drawing fonts do no kerning) and the font's height. Each font keeps a table of the
// advances of all 256 Windows-1252 characters, so a title costs one addition per character: the
// titles of a large map are measured in a few milliseconds.
#include "outline/MindMapGeometry.h"

#include <array>
#include <map>
#include <string>
#include <tuple>

namespace velto {

class TitleMeasurer : public TextMeasurer {
public:
    TextExtent Measure(std::string_view cp1252Text, const TitleStyle& style) override;

private:
    struct Metrics {
        std::array<double, 256> advance{};
        int height = 0;
    };
    // Underline and strike-out change no extent.
    using Key = std::tuple<std::string, bool, bool, int>;
    // A freak font can make the root's fitting loop run through thousands of sizes; the tables are
    // then dropped before they pile up.
    static constexpr size_t kMaxFonts = 64;

    const Metrics& MetricsOf(const TitleStyle& style);

    std::map<Key, Metrics> m_fonts;
};

} // namespace velto
