#include "ui/qt/frmhinweise.h"

#include "basis/oberflaeche.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmInfo::frmInfo(std::string_view NameMitVersion, QWidget* Eltern) : QDialog(Eltern) {
    setObjectName(u"frmInfo"_s);
    setWindowTitle(u"Info"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(
        *Spalte, Programmsymbol(), QtText(NameMitVersion),
        u"Verwaltet Ihre Mediendateien: hinzufügen, suchen, auflisten – auch wenn ein Datenträger "
        "gerade nicht eingelegt ist."_s);
    TextHinzufügen(
        *Spalte, u"lblLizenz"_s,
        u"Freie Software unter der GNU General Public License, Version 3. Sie wird ohne jede Gewährleistung "
        "bereitgestellt."_s);
    QLabel* const lblBestandteile = TextHinzufügen(
        *Spalte, u"lblBestandteile"_s,
        u"Verwendete Bibliotheken:\n"
        "    Qt %1 – Oberfläche (LGPL 3)\n"
        "    TagLib – Angaben aus Mediendateien (LGPL 2.1, MPL 1.1)\n"
        "    libdiscid – Inhaltsverzeichnis von Audio-CDs (LGPL 2.1)"_s.arg(QLatin1String(qVersion())));
    // For a report of a fault it is copied.
    lblBestandteile->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    lblBestandteile->setAccessibleName(u"Verwendete Bibliotheken"_s);
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&Schließen"_s, Accepted}})[0]->setDefault(true);
}

frmEigentümer::frmEigentümer(std::string_view Name, QWidget* Eltern) : QDialog(Eltern) {
    setObjectName(u"frmEigentümer"_s);
    setWindowTitle(u"Index-Eigentümer"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("sammlung"), u"Dieser Index gehört:"_s, QtText(Name));
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}})[0]->setDefault(true);
}

}  // namespace liedwerk
