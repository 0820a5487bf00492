#pragma once
// A point in time as the project file stores it: whole seconds since 1970-01-01 00:00:00 UTC in
// 32 bits, shown in local time through the C library.
#include <cstdint>
#include <string>

namespace velto {

class CTime {
public:
    CTime() = default;
    explicit CTime(uint32_t seconds) : m_time(seconds) {}
    // Local date and time; whether daylight saving applies is left to the C library.
    // A date the C library cannot represent yields time 0.
    CTime(int year, int month, int day, int hour, int minute, int second);

    static CTime GetCurrentTime();
    // Today's local date at the given time of day ("today 01:00:00", "today 23:59:59").
    static CTime TodayAt(int hour, int minute, int second);

    uint32_t GetTime() const { return m_time; }
    bool IsNull() const { return m_time == 0; }

    int GetYear() const;
    int GetMonth() const; // 1..12
    int GetDay() const;   // 1..31
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    int GetDayOfWeek() const; // 1 = Sunday .. 7 = Saturday

    // strftime pattern in local time, e.g. "%d.%m.%Y", "%H:%M", "%Y/%m/%d".
    std::string Format(const char* pattern) const;

    CTime operator+(int64_t seconds) const;
    CTime operator-(int64_t seconds) const { return *this + (-seconds); }
    int64_t operator-(CTime other) const { return int64_t(m_time) - int64_t(other.m_time); }
    auto operator<=>(const CTime&) const = default;

private:
    struct tm LocalFields() const;
    uint32_t m_time = 0;
};

} // namespace velto
