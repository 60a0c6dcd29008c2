// Prints the type that the desktop takes each file for, one a line.
#include <QCoreApplication>
#include <QMimeDatabase>
#include <iostream>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QMimeDatabase types;
  for (const QString& file : QCoreApplication::arguments().mid(1)) {
    std::cout << types.mimeTypeForFile(file).name().toStdString() << '\n';
  }
  return 0;
}
