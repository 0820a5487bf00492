#include "chart/TitleMeasurer.h"

#include "base/Cp1252Text.h"
#include "chart/ChartStyle.h"

#include <QFontMetricsF>

#include <cmath>

namespace velto {

TextExtent TitleMeasurer::Measure(std::string_view cp1252Text, const TitleStyle& style) {
    const Metrics& metrics = MetricsOf(style);
    double width = 0.0;
    for (const char c : cp1252Text)
        width += metrics.advance[static_cast<unsigned char>(c)];
    return {int(std::ceil(width)), metrics.height};
}

const TitleMeasurer::Metrics& TitleMeasurer::MetricsOf(const TitleStyle& style) {
    Key key{std::string(style.fontName), style.bold, style.italic, style.size};
    if (const auto found = m_fonts.find(key); found != m_fonts.end())
        return found->second;
    if (m_fonts.size() >= kMaxFonts)
        m_fonts.clear();
    Metrics& metrics = m_fonts[std::move(key)];
    const QFontMetricsF font(chartstyle::TitleFont(style));
    for (int byte = 0; byte < 256; ++byte) {
        const char c = char(byte);
        const QString text = ToQString(std::string_view(&c, 1));
        metrics.advance[size_t(byte)] = text.size() == 1 ? font.horizontalAdvance(text.front()) : 0.0;
    }
    metrics.height = int(std::ceil(font.height()));
    return metrics;
}

} // namespace velto
