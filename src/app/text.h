#pragma once

#include <QString>

#include "platform/string.h"

namespace korva {

inline QString ToQt(const String& text) { return QString::fromStdU16String(text); }
inline String FromQt(const QString& text) { return text.toStdU16String(); }

}  // namespace korva
