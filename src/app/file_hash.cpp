#include "app/file_hash.h"

#include <QCryptographicHash>
#include <QFile>

namespace vantrel {

std::optional<std::string> file_hash(const std::filesystem::path& file) {
  QFile bytes(QString::fromStdString(file.string()));
  if (!bytes.open(QIODevice::ReadOnly)) return std::nullopt;
  QCryptographicHash hash(QCryptographicHash::Sha256);
  if (!hash.addData(&bytes)) return std::nullopt;
  return hash.result().toHex().toStdString();
}

}  // namespace vantrel
