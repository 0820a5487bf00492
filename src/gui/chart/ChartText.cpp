#include "chart/ChartText.h"

#include "model/Cp1252.h"

namespace velto {

namespace {

// " «» " in Windows-1252.
constexpr std::string_view kResponsibleSeparator = "\x20\xAB\xBB\x20";

} // namespace

std::string ChartDatePrefix(const CProjectNode& node, int mode) {
    switch (mode) {
    case kDatePrefixStart:
        return node.m_timeStart.Format("%d.%m.%Y: ");
    case kDatePrefixDue:
        return node.m_timeDue.Format("%d.%m.%y: ");
    case kDatePrefixBoth:
        return node.m_timeStart.Format("%d.%m.%y-") + node.m_timeDue.Format("%d.%m.%y: ");
    default:
        return {};
    }
}

std::string ResponsibleShortCode(std::string_view responsible) {
    const size_t separator = responsible.rfind(kResponsibleSeparator);
    if (separator == std::string_view::npos)
        return std::string(responsible);
    return std::string(responsible.substr(separator + kResponsibleSeparator.size()));
}

std::string ChartRowText(const CProjectNode& node, int datePrefixMode, bool showResponsible) {
    std::string text = ChartDatePrefix(node, datePrefixMode);
    if (showResponsible) {
        const std::string code = ResponsibleShortCode(node.m_strResponsible);
        if (!code.empty())
            text += "[" + code + "] ";
    }
    return text += node.m_strTitle;
}

} // namespace velto
