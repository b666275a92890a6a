#include "plattform/qt/anwendungsobjekt.h"

#include <QCoreApplication>

namespace liedwerk {

void AnwendungSicherstellen() {
    static int Anzahl = 1;
    static char Name[] = "liedwerk";
    static char* Worte[] = {Name, nullptr};
    if (QCoreApplication::instance() == nullptr) new QCoreApplication(Anzahl, Worte);
}

}  // namespace liedwerk
