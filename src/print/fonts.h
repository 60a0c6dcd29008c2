#pragma once

#include <QString>
#include <QStringList>

namespace korva {

/// The families of fonts for Japanese texts, the first that is installed to be taken.
QStringList FontFamilies();

/// Tells that the texts can't be read, where no family of fonts has Japanese characters; empty where one has.
/// In English, since Japanese could not be read.
QString MissingFontText(const QStringList& japanese_families);

}  // namespace korva
