#pragma once
// The user settings ("kolvarin/Velto5"): every value with its type and its default, declared once.
// The store is opened afresh at each use, like the registry key it stands for; when it cannot be read
// or written the user is told "Regestry Error" (spelled so on purpose) and the defaults apply.
#include <QSettings>
#include <QString>

#include <memory>
#include <optional>
#include <string_view>

namespace velto {

class Prompter;

struct NumberSetting {
    const char* name;
    int fallback;
};
struct TextSetting {
    const char* name;
    const char* fallback;
};

namespace setting {
inline constexpr TextSetting StartFile1{"Datei1", ""};
inline constexpr TextSetting StartFile2{"Datei2", ""};
inline constexpr TextSetting StartFile3{"Datei3", ""};
inline constexpr TextSetting NoteFontName{"SchriftName", "Arial"};
inline constexpr NumberSetting NoteFontSize{"SchriftGroesse", 12};
inline constexpr int kMinNoteFontSize = 6;
inline constexpr int kMaxNoteFontSize = 100;
inline constexpr NumberSetting DatePrefix{"Datum", 0};      // 0 none, 1 start, 2 due, 3 both
inline constexpr TextSetting ShowResponsible{"Verant", ""}; // only a leading "F" means off
inline constexpr NumberSetting SortByDue{"Sortieren", 0};
inline constexpr NumberSetting BarInNodeColor{"Balken", 0};
inline constexpr NumberSetting FrameTop{"Top", 0};
inline constexpr NumberSetting FrameLeft{"Left", 0};
inline constexpr NumberSetting FrameBottom{"Bottom", 0};
inline constexpr NumberSetting FrameRight{"Right", 0};
inline constexpr NumberSetting FrameMaximized{"Max", 0};
inline constexpr NumberSetting ToolbarShown{"Tool", 1};
inline constexpr NumberSetting StatusBarShown{"Status", 1};
inline constexpr NumberSetting NoteToolbarShown{"BtnNotiz", 1};

// How every reader understands "Datum" and "Verant", so that the chart shows what the settings
// dialog shows.
// "Datum" 1 to 3 as stored; any other value, or none, shows no date.
int DatePrefixOf(std::optional<int> stored);
// "Verant" is written "TRUE" or "FALSE"; a missing value is off, and of the texts only one starting
// with an upper-case "F" is off ("false" is on).
bool IsResponsibleShown(const std::optional<QString>& stored);
QString ResponsibleText(bool shown);
} // namespace setting

// One opening of the store. When the store could not be opened, reads give the defaults and writes
// are dropped.
class SettingsSession {
public:
    bool IsOpen() const { return m_settings != nullptr; }

    // The stored value, or nothing when it is missing or not of the setting's type.
    std::optional<int> Find(const NumberSetting& key) const;
    std::optional<QString> Find(const TextSetting& key) const;
    int Get(const NumberSetting& key) const { return Find(key).value_or(key.fallback); }
    QString Get(const TextSetting& key) const;

    void Set(const NumberSetting& key, int value);
    void Set(const TextSetting& key, const QString& value);
    // Writes what was set; false (after "Regestry Error") when that failed.
    bool Commit();

private:
    friend class SettingsStore;
    SettingsSession(std::unique_ptr<QSettings> settings, Prompter& prompter)
        : m_settings(std::move(settings)), m_prompter(&prompter) {}

    std::unique_ptr<QSettings> m_settings;
    Prompter* m_prompter;
};

class SettingsStore {
public:
    explicit SettingsStore(Prompter& prompter) : m_prompter(prompter) {}
    // Opens the store; tells "Regestry Error" when it cannot be read or written.
    SettingsSession Open() const;

    static constexpr const char* kOrganization = "kolvarin";
    static constexpr const char* kApplication = "Velto5";

private:
    Prompter& m_prompter;
};

} // namespace velto
