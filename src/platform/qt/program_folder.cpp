#include "platform/qt/program_folder.h"

#include <QCoreApplication>

namespace korva {

std::filesystem::path ProgramFolder() { return QCoreApplication::applicationDirPath().toStdU16String(); }

}  // namespace korva
