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
    TextHinzufügen(*Spalte, u"lblBestandteile"_s,
                   u"Oberfläche mit Qt %1, Medienangaben mit TagLib."_s.arg(QLatin1String(qVersion())));
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&Schließen"_s, Accepted}})[0]->setDefault(true);
}

frmEigentümer::frmEigentümer(std::string_view Name, QWidget* Eltern) : QDialog(Eltern) {
    setObjectName(u"frmEigentümer"_s);
    setWindowTitle(u"Index-Eigentümer"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("sammlung"), u"Dieser Index gehört:"_s, QtText(Name));
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}})[0]->setDefault(true);
}

frmWillkommen::frmWillkommen(std::string_view NameMitVersion, QWidget* Eltern) : QDialog(Eltern) {
    setObjectName(u"frmWillkommen"_s);
    setWindowTitle(u"Willkommen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Programmsymbol(), u"Willkommen zum "_s + QtText(NameMitVersion),
                     u"Ihre Sammlung in einer Liste, die Sie in Sekunden durchsuchen."_s);
    TextHinzufügen(
        *Spalte, u"lblErstens"_s,
        u"1.  Fügen Sie einen Ordner mit Mediendateien hinzu. Ihre Dateien bleiben, wo und wie sie sind."_s);
    TextHinzufügen(*Spalte, u"lblZweitens"_s,
                   u"2.  Tippen Sie oben ein Wort ein – die Liste zeigt, was dazu passt."_s);
    TextHinzufügen(*Spalte, u"lblDrittens"_s,
                   u"3.  Wählen Sie eine Datei, um rechts ihre Beschreibung zu lesen."_s);
    const auto Knöpfe =
        KnöpfeHinzufügen(*Spalte, *this,
                         {{u"cmdOrdnerHinzufügen"_s, u"&Ordner hinzufügen..."_s, OrdnerGewünscht},
                          {u"cmdOk"_s, u"&Schließen"_s, Accepted}});
    Knöpfe[0]->setDefault(true);
}

}  // namespace liedwerk
