#include "plattform/system.h"

#include <QString>
#include <QSysInfo>

#include "plattform/qt/laufwerke.h"
#include "plattform/qt/medienauskunft.h"

namespace liedwerk {

std::unique_ptr<Laufwerke> SystemlaufwerkeÖffnen() {
    return std::make_unique<Systemlaufwerke>();
}

std::unique_ptr<Medienauskunft> SystemauskunftÖffnen() {
    return std::make_unique<TaglibAuskunft>();
}

std::string Systemtext() {
    return (QSysInfo::prettyProductName() + ", " + QSysInfo::kernelType() + " " + QSysInfo::kernelVersion())
        .toStdString();
}

}  // namespace liedwerk
