// The tests of the windows need Qt's application around them, on a screen and a bus that nobody sees.
#include <gtest/gtest.h>

#include "ui/qt/fensterprogramm.h"

int main(int Anzahl, char** Werte) {
    testing::InitGoogleTest(&Anzahl, Werte);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    liedwerk::Fensterprogramm Qt(Anzahl, Werte);
    Qt.Melden = [](const QString& Text) { ADD_FAILURE() << Text.toStdString(); };
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
