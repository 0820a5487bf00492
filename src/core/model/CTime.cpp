#include "model/CTime.h"

#include <algorithm>
#include <ctime>

namespace velto {

CTime::CTime(int year, int month, int day, int hour, int minute, int second) {
    struct tm fields {};
    fields.tm_year = year - 1900;
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    fields.tm_hour = hour;
    fields.tm_min = minute;
    fields.tm_sec = second;
    fields.tm_isdst = -1;
    const time_t t = mktime(&fields);
    m_time = (t < 0 || t > time_t(UINT32_MAX)) ? 0 : uint32_t(t);
}

CTime CTime::GetCurrentTime() {
    const time_t now = time(nullptr);
    return CTime(uint32_t(std::clamp<time_t>(now, 0, time_t(UINT32_MAX))));
}

CTime CTime::TodayAt(int hour, int minute, int second) {
    const struct tm today = GetCurrentTime().LocalFields();
    return CTime(today.tm_year + 1900, today.tm_mon + 1, today.tm_mday, hour, minute, second);
}

struct tm CTime::LocalFields() const {
    struct tm fields {};
    const time_t t = time_t(m_time);
    localtime_r(&t, &fields);
    return fields;
}

int CTime::GetYear() const {
    return LocalFields().tm_year + 1900;
}
int CTime::GetMonth() const {
    return LocalFields().tm_mon + 1;
}
int CTime::GetDay() const {
    return LocalFields().tm_mday;
}
int CTime::GetHour() const {
    return LocalFields().tm_hour;
}
int CTime::GetMinute() const {
    return LocalFields().tm_min;
}
int CTime::GetSecond() const {
    return LocalFields().tm_sec;
}
int CTime::GetDayOfWeek() const {
    return LocalFields().tm_wday + 1;
}

std::string CTime::Format(const char* pattern) const {
    const struct tm fields = LocalFields();
    char buffer[256];
    const size_t n = strftime(buffer, sizeof buffer, pattern, &fields);
    return std::string(buffer, n);
}

CTime CTime::operator+(int64_t seconds) const {
    return CTime(uint32_t(std::clamp<int64_t>(int64_t(m_time) + seconds, 0, int64_t(UINT32_MAX))));
}

} // namespace velto
