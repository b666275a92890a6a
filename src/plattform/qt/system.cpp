#include "plattform/system.h"

#include <QString>
#include <QSysInfo>

#include "plattform/linux/papierkorb.h"
#include "plattform/linux/programmstart.h"
#include "plattform/linux/systemcds.h"
#include "plattform/qt/desktopfarben.h"
#include "plattform/qt/http.h"
#include "plattform/qt/laufwerke.h"
#include "plattform/qt/medienauskunft.h"
#include "plattform/qt/mprisspieler.h"

namespace liedwerk {

std::unique_ptr<Laufwerke> SystemlaufwerkeÖffnen() {
    return std::make_unique<Systemlaufwerke>();
}

std::unique_ptr<CDLaufwerke> SystemcdsÖffnen() {
    return std::make_unique<Systemcds>();
}

std::unique_ptr<Medienauskunft> SystemauskunftÖffnen() {
    return std::make_unique<TaglibAuskunft>();
}

std::unique_ptr<Papierkorb> SystempapierkorbÖffnen() {
    return std::make_unique<Desktoppapierkorb>();
}

std::unique_ptr<Http> SystemnetzÖffnen() {
    return std::make_unique<Qthttp>();
}

std::unique_ptr<Spielerkanal> SystemspielerÖffnen() {
    return std::make_unique<Mprisspieler>();
}

std::unique_ptr<Programmstart> SystemprogrammeÖffnen() {
    return std::make_unique<Systemprogramme>();
}

std::unique_ptr<Desktopfarben> SystemfarbenÖffnen() {
    return std::make_unique<Portalfarben>();
}

std::string Systemtext() {
    return (QSysInfo::prettyProductName() + ", " + QSysInfo::kernelType() + " " + QSysInfo::kernelVersion())
        .toStdString();
}

}  // namespace liedwerk
