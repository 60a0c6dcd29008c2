#include "print/fonts.h"

#include <QFont>

#include "core/texts.h"

namespace korva {

// The system's own font where it is installed, else one that has the same characters.
QStringList FontFamilies() {
  return {QString::fromStdU16String(String(kFontName)), QStringLiteral("Noto Sans CJK JP"), QFont().family()};
}

QString MissingFontText(const QStringList& japanese_families) {
  return japanese_families.isEmpty()
             ? QStringLiteral(
                   "No font with Japanese characters is installed, so the texts of KORVA can't be "
                   "read. Install one, for instance the package fonts-noto-cjk, and start again.")
             : QString();
}

}  // namespace korva
