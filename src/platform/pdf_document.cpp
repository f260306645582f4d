#include "platform/pdf_document.h"

#include <QHashSeed>
#include <QString>
#include <utility>

namespace vantrel {

namespace {

/// Blanks between the entries of a dictionary are of no meaning, and the offsets in the file stay
/// as they are.
void blank_creation_date(QByteArray& pdf) {
  const qsizetype begin = pdf.indexOf("/CreationDate (");
  if (begin < 0) return;
  const qsizetype end = pdf.indexOf(')', begin);
  const qsizetype length = end - begin + 1;
  if (length > 0) pdf.replace(begin, length, QByteArray(length, ' '));
}

/// The buffer must be open before a writer takes it.
QBuffer* opened(QBuffer& buffer) {
  buffer.open(QIODevice::WriteOnly);
  return &buffer;
}

}  // namespace

FixedHashes::FixedHashes() { QHashSeed::setDeterministicGlobalSeed(); }
FixedHashes::~FixedHashes() { QHashSeed::resetRandomGlobalSeed(); }

PdfDocument::PdfDocument(const std::string& title, const QPageLayout& layout)
    : buffer_(&bytes_), writer_(opened(buffer_)) {
  writer_.setTitle(QString::fromStdString(title));
  writer_.setCreator(QStringLiteral("Vantrel"));
  writer_.setResolution(kResolution);
  writer_.setPageLayout(layout);
}

QByteArray PdfDocument::take() {
  buffer_.close();
  blank_creation_date(bytes_);
  return std::exchange(bytes_, {});
}

}  // namespace vantrel
