#include "base/Settings.h"

#include "common/Prompter.h"

namespace velto {

namespace {
void TellStoreFailed(Prompter& prompter) {
    prompter.Tell("Regestry Error", Prompter::kCaption, PromptIcon::Error);
}

bool Usable(const QSettings& settings) {
    return settings.status() == QSettings::NoError && settings.isWritable();
}
} // namespace

int setting::DatePrefixOf(std::optional<int> stored) {
    return stored && *stored >= 1 && *stored <= 3 ? *stored : 0;
}

bool setting::IsResponsibleShown(const std::optional<QString>& stored) {
    return stored && !stored->startsWith(QLatin1Char('F'));
}

QString setting::ResponsibleText(bool shown) {
    return shown ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
}

SettingsSession SettingsStore::Open() const {
    auto settings = std::make_unique<QSettings>(kOrganization, kApplication);
    if (!Usable(*settings)) {
        TellStoreFailed(m_prompter);
        settings.reset();
    }
    return SettingsSession(std::move(settings), m_prompter);
}

std::optional<int> SettingsSession::Find(const NumberSetting& key) const {
    if (!m_settings)
        return std::nullopt;
    const QVariant value = m_settings->value(key.name);
    bool ok = false;
    const int number = value.toInt(&ok);
    if (!value.isValid() || !ok)
        return std::nullopt;
    return number;
}

std::optional<QString> SettingsSession::Find(const TextSetting& key) const {
    if (!m_settings)
        return std::nullopt;
    const QVariant value = m_settings->value(key.name);
    // An unquoted text with commas, edited by hand, reads as a list: its parts are joined again.
    if (value.typeId() == QMetaType::QStringList)
        return value.toStringList().join(QStringLiteral(", "));
    if (!value.isValid() || !value.canConvert<QString>())
        return std::nullopt;
    return value.toString();
}

QString SettingsSession::Get(const TextSetting& key) const {
    return Find(key).value_or(QString::fromUtf8(key.fallback));
}

void SettingsSession::Set(const NumberSetting& key, int value) {
    if (m_settings)
        m_settings->setValue(key.name, value);
}

void SettingsSession::Set(const TextSetting& key, const QString& value) {
    if (m_settings)
        m_settings->setValue(key.name, value);
}

bool SettingsSession::Commit() {
    if (!m_settings)
        return false;
    m_settings->sync();
    if (Usable(*m_settings))
        return true;
    TellStoreFailed(*m_prompter);
    return false;
}

} // namespace velto
