#include "platform/qt_settings.h"

#include <QSettings>
#include <QString>

namespace vantrel {

namespace {

QString utf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString path(std::string_view section, std::string_view key) {
  return utf8(section) + QLatin1Char('/') + utf8(key);
}

}  // namespace

QtSettings::QtSettings(const std::string& file)
    : settings_(std::make_unique<QSettings>(utf8(file), QSettings::IniFormat)) {}

QtSettings::~QtSettings() = default;

std::string QtSettings::get(std::string_view section, std::string_view key,
                            std::string_view fallback) {
  const QVariant stored = settings_->value(path(section, key));
  // An unquoted comma makes a list of a hand-edited line; the text is what was meant.
  if (stored.typeId() == QMetaType::QStringList) {
    return stored.toStringList().join(QLatin1Char(',')).toStdString();
  }
  return stored.isValid() ? stored.toString().toStdString() : std::string(fallback);
}

void QtSettings::save(std::string_view section, std::string_view key, std::string_view value) {
  const QString name = path(section, key);
  if (settings_->contains(name) && settings_->value(name).toString() == utf8(value)) return;
  settings_->setValue(name, utf8(value));
  settings_->sync();
}

}  // namespace vantrel
