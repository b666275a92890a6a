// The tests of the windows need Qt's application around them, on a screen and a bus that nobody sees.
#include <QApplication>
#include <gtest/gtest.h>

int main(int Anzahl, char** Werte) {
    testing::InitGoogleTest(&Anzahl, Werte);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    const QApplication Qt(Anzahl, Werte);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
