// The tests of the Qt host need the application object.
#include <gtest/gtest.h>

#include <QCoreApplication>

#include "platform/qt/qt_event_loop.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  korva::QtEventLoop::ChooseDispatcher();
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
