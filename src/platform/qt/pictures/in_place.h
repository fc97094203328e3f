#pragma once

#include <QByteArray>
#include <string>

namespace Morvane {

// Not a copy: valid as long as `bytes` stays as it is.
inline QByteArray InPlace(const std::string& bytes) {
  return QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

QByteArray InPlace(std::string&& bytes) = delete;

}  // namespace Morvane
