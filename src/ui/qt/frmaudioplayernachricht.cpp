#include "ui/qt/frmaudioplayernachricht.h"

#include "ui/qt/formkopf.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmAudioplayerNachricht::frmAudioplayerNachricht(const QString& Spieler, QWidget* Eltern) : QDialog(Eltern) {
    setObjectName(u"frmAudioplayerNachricht"_s);
    setWindowTitle(u"Audio-Player"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("player-start"), u"'%1' spielt Ihre Dateien ab."_s.arg(Spieler),
                     u"Liedwerk spielt nicht selbst: Der Audio-Player läuft als eigenes Programm. Unten im "
                     "Hauptfenster sehen und steuern Sie, was er gerade spielt."_s);
    chkNichtMehrZeigen = new QCheckBox(u"Diese Nachricht &nicht mehr zeigen"_s, this);
    chkNichtMehrZeigen->setObjectName(u"chkNichtMehrZeigen"_s);
    Spalte->addWidget(chkNichtMehrZeigen);
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}})[0]->setDefault(true);
}

}  // namespace liedwerk
