#pragma once

#include <memory>
#include <string>

#include "core/ports.h"

class QSettings;

namespace vantrel {

/// Settings in an INI file. A file that cannot be read counts as empty.
class QtSettings : public SettingsStore {
 public:
  explicit QtSettings(const std::string& file);
  ~QtSettings() override;

  std::string get(std::string_view section, std::string_view key,
                  std::string_view fallback) override;
  void save(std::string_view section, std::string_view key, std::string_view value) override;

 private:
  std::unique_ptr<QSettings> settings_;
};

}  // namespace vantrel
