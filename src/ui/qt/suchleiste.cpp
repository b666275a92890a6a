#include "ui/qt/suchleiste.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QStylePainter>

#include "index/spalten.h"
#include "suche/feldwert.h"
#include "suche/vervollstaendigung.h"
#include "ui/qt/mauszeiger.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

Suchfeld::Suchfeld(QWidget* Eltern) : QComboBox(Eltern) {
    setObjectName(u"txtSongname"_s);
    setAccessibleName(u"Suchbegriff"_s);
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setModel(&Modell);
    // One height for all entries and no look at their widths: a long list must open at once.
    static_cast<QListView*>(view())->setUniformItemSizes(true);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(20);
    setMaxVisibleItems(20);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    lineEdit()->setPlaceholderText(u"Suchbegriff eingeben"_s);
    lineEdit()->setAccessibleName(u"Suchbegriff"_s);
    QEvent Farbwechsel(QEvent::PaletteChange);
    changeEvent(&Farbwechsel);
    lineEdit()->addAction(Symbolbild("suchen"), QLineEdit::LeadingPosition);
}

void Suchfeld::EingabeAusrichten() {
    const bool OhneListe = count() == 0;
    lineEdit()->setFrame(OhneListe);
    if (OhneListe) lineEdit()->setGeometry(rect());
}

void Suchfeld::ListeSetzen(std::vector<std::string> Einträge) {
    if (Einträge.empty() && count() == 0) return;
    const QString Text = currentText();
    const int Stelle = lineEdit()->cursorPosition();
    Modell.Setzen(std::move(Einträge));
    setCurrentIndex(-1);
    setEditText(Text);
    lineEdit()->setCursorPosition(Stelle);
    EingabeAusrichten();
    update();
}

void Suchfeld::EintragWählen(int Nummer) {
    setCurrentIndex(Nummer);
    if (const QString Text = itemText(Nummer); currentText() != Text) setEditText(Text);
}

void Suchfeld::keyPressEvent(QKeyEvent* Ereignis) {
    if (TasteGedrückt && TasteGedrückt(Ereignis)) {
        Ereignis->accept();
        return;
    }
    QComboBox::keyPressEvent(Ereignis);
}

void Suchfeld::resizeEvent(QResizeEvent* Ereignis) {
    QComboBox::resizeEvent(Ereignis);
    EingabeAusrichten();
}

void Suchfeld::changeEvent(QEvent* Ereignis) {
    QComboBox::changeEvent(Ereignis);
    if (lineEdit() == nullptr) return;
    EingabeAusrichten();
    if (Ereignis->type() != QEvent::PaletteChange) return;
    // Some desktops hand over a dark palette whose hint colour was made for a light one.
    QPalette Farben = palette();
    QColor Hinweis = Farben.color(QPalette::Text);
    Hinweis.setAlpha(165);
    Farben.setColor(QPalette::PlaceholderText, Hinweis);
    lineEdit()->setPalette(Farben);
}

void Suchfeld::paintEvent(QPaintEvent* Ereignis) {
    if (count() > 0) QComboBox::paintEvent(Ereignis);
}

void Suchfeld::wheelEvent(QWheelEvent* Ereignis) {
    Ereignis->ignore();
}

QStringList Suchfeldnamen() {
    QStringList Namen = {QtText(Standardsuche)};
    for (const Spalte& Eine : SpaltenNamen)
        Namen += QtText(Eine.Name);
    return Namen;
}

Suchleiste::Suchleiste(const Einstellungen& Einstellwerte, const Suchabfragen& Abfragen, QWidget* Eltern)
    : QWidget(Eltern), Werte(Einstellwerte), Menge(Abfragen) {
    auto* const lblSuche = new QLabel(u"S&uchen in:"_s, this);
    cboSuche = new QComboBox(this);
    cboSuche->setObjectName(u"cboSuche"_s);
    cboSuche->setAccessibleName(u"Suchen in"_s);
    cboSuche->addItems(Suchfeldnamen());
    cboSuche->setMaxVisibleItems(20);
    lblSuche->setBuddy(cboSuche);
    txtSongname = new Suchfeld(this);
    cmdSucheLöschen = new QToolButton(this);
    cmdSucheLöschen->setObjectName(u"cmdSucheLöschen"_s);
    cmdSucheLöschen->setAccessibleName(u"Suche leeren"_s);
    cmdSucheLöschen->setToolTip(u"Suche leeren"_s);
    cmdSucheLöschen->setIcon(Symbolbild("leeren"));
    cmdSucheLöschen->setAutoRaise(true);
    cmdSucheLöschen->setFocusPolicy(Qt::TabFocus);

    auto* const Zeile = new QHBoxLayout(this);
    Zeile->setContentsMargins(0, 0, 0, 0);
    Zeile->addWidget(lblSuche);
    Zeile->addWidget(cboSuche);
    Zeile->addWidget(txtSongname, 1);
    Zeile->addWidget(cmdSucheLöschen);
    const int Höhe = txtSongname->sizeHint().height() + 6;
    cboSuche->setFixedHeight(Höhe);
    txtSongname->setFixedHeight(Höhe);
    cmdSucheLöschen->setFixedSize(Höhe, Höhe);
    setTabOrder(cboSuche, txtSongname);
    setTabOrder(txtSongname, cmdSucheLöschen);

    tmrListe.setObjectName(u"tmrListe"_s);
    tmrListe.setParent(this);
    tmrListe.setSingleShot(true);
    connect(&tmrListe, &QTimer::timeout, this, [this] { tmrListe_Timer(); });
    connect(txtSongname, &QComboBox::editTextChanged, this, [this] {
        cmdSucheLöschen->setEnabled(Gefüllt());
        if (TextGeändert) TextGeändert();
        txtSongname_Change();
    });
    connect(cboSuche, &QComboBox::currentIndexChanged, this, [this] {
        cmdSucheLöschen->setEnabled(Gefüllt());
        AuswahllisteFüllen();
    });
    cmdSucheLöschen->setEnabled(false);
    connect(cboSuche, &QComboBox::activated, this, [this] { cboSuche_Click(); });
    connect(cmdSucheLöschen, &QToolButton::clicked, this, [this] {
        Löschen();
        Fokussieren();
    });
    txtSongname->TasteGedrückt = [this](QKeyEvent* Ereignis) { return txtSongname_KeyDown(Ereignis); };
}

Suchzeile Suchleiste::Lesen() const {
    return {Utf8Text(txtSongname->currentText()), Utf8Text(cboSuche->currentText()), cboSuche->isEnabled()};
}

void Suchleiste::Leeren() {
    const bool Vorher = SucheÄnderungSperren;
    SucheÄnderungSperren = true;
    tmrListe.stop();
    cboSuche->setCurrentIndex(0);
    txtSongname->setEditText({});
    cboSuche->setEnabled(true);
    txtSongname->setEnabled(true);
    SucheÄnderungSperren = Vorher;
}

void Suchleiste::MengeZeigen() {
    if (Menge.SucheAnzahl() == 0) return Leeren();
    const bool Vorher = SucheÄnderungSperren;
    SucheÄnderungSperren = true;
    tmrListe.stop();
    const bool Eine = Menge.SucheAnzahl() == 1;
    cboSuche->setEnabled(Eine);
    txtSongname->setEnabled(Eine);
    cboSuche->setCurrentIndex(Eine ? cboSuche->findText(QtText(Menge.Liste.front().Feld)) : -1);
    txtSongname->setEditText(QtText(Eine ? std::string_view(Menge.Liste.front().Begriff) : MehrereAbfragen));
    SucheÄnderungSperren = Vorher;
}

void Suchleiste::TextSuchen(const QString& Text) {
    SucheÄnderungSperren = true;
    txtSongname->setEditText(Text);
    SucheÄnderungSperren = false;
    SucheSofort = true;
    AutoCompleteÜberspringen = true;  // the word is meant as it stands
    txtSongname_Change();
    SucheSofort = false;
}

bool Suchleiste::Gefüllt() const {
    return !txtSongname->currentText().isEmpty() || cboSuche->currentIndex() != 0;
}

void Suchleiste::AusstehendesAusführen() {
    if (tmrListe.isActive()) tmrListe_Timer();
}

void Suchleiste::Fokussieren() {
    txtSongname->setFocus(Qt::OtherFocusReason);
    txtSongname->lineEdit()->selectAll();
}

void Suchleiste::AuswahllisteFüllen() {
    if (!Feldwerte) return;
    const QScopedValueRollback Gesperrt(SucheÄnderungSperren, true);
    const Mauszeiger Zeiger(Qt::BusyCursor);
    txtSongname->ListeSetzen(Feldwerte(Utf8Text(cboSuche->currentText())));
}

void Suchleiste::Vervollständigen() {
    const QString Text = txtSongname->currentText();
    // An entry that was picked from the drop-down is complete, even if another one begins with it.
    if (const int Nummer = txtSongname->currentIndex(); Nummer >= 0 && txtSongname->itemText(Nummer) == Text)
        return;
    QLineEdit& Eingabe = *txtSongname->lineEdit();
    const int Stelle = Eingabe.cursorPosition();
    // The core counts characters, the control counts units of two bytes.
    const auto Zeichen = static_cast<std::size_t>(Text.left(Stelle).toUcs4().size());
    const auto Fund = AutoCompleteAusführen(Utf8Text(Text), txtSongname->Liste(), Zeichen,
                                            Werte.AutoCompleteVerwenden == 1, AutoCompleteÜberspringen);
    if (!Fund) return;
    txtSongname->EintragWählen(static_cast<int>(Fund->Eintrag));
    // Selected backwards, so that the caret stays where the typing is.
    const int Ende = static_cast<int>(txtSongname->currentText().size());
    if (Fund->SelLength > 0 && Ende > Stelle) {
        Eingabe.setSelection(Ende, Stelle - Ende);
    } else {
        Eingabe.setCursorPosition(Stelle);
    }
}

void Suchleiste::txtSongname_Change() {
    if (SucheÄnderungSperren) return;
    const QScopedValueRollback Gesperrt(SucheÄnderungSperren, true);
    tmrListe.stop();
    Vervollständigen();
    const int Wartezeit = Suchverzögerung(Utf8Text(txtSongname->currentText()), txtSongname->isEnabled(),
                                          Menge.SucheAnzahl(), SucheSofort);
    if (Wartezeit == 0) {
        tmrListe_Timer();
    } else {
        tmrListe.start(Wartezeit);
    }
}

bool Suchleiste::txtSongname_KeyDown(QKeyEvent* Ereignis) {
    const bool Eingabetaste = Ereignis->key() == Qt::Key_Return || Ereignis->key() == Qt::Key_Enter;
    if (Werte.SucheNachEingabetaste == 1) {
        SucheÄnderungSperren = !Eingabetaste;
        if (Eingabetaste) {
            SucheSofort = true;
            txtSongname_Change();
            SucheSofort = false;
        }
    } else {
        SucheÄnderungSperren = false;
        if (Eingabetaste) AusstehendesAusführen();
    }
    const bool Löschtaste = Ereignis->key() == Qt::Key_Delete || Ereignis->key() == Qt::Key_Backspace;
    AutoCompleteÜberspringen = Löschtaste && !txtSongname->currentText().isEmpty();
    if (Eingabetaste) return true;
    if (Ereignis->key() == Qt::Key_Escape) {
        // First Esc empties the row, the next one leaves it.
        if (txtSongname->currentText().isEmpty()) {
            ZurListe();
        } else {
            Löschen();
        }
        return true;
    }
    if (Ereignis->key() == Qt::Key_Down && Ereignis->modifiers() == Qt::NoModifier) {
        AusstehendesAusführen();
        ZurListe();
        return true;
    }
    return false;
}

void Suchleiste::cboSuche_Click() {
    // Kept: in the Enter mode a key may have left the guard up; then the choice waits for the Enter key too.
    if (!txtSongname->currentText().isEmpty() || Werte.SucheNichtBeiAuswahl != 1) txtSongname_Change();
}

void Suchleiste::tmrListe_Timer() {
    tmrListe.stop();
    if (DarfSuchen && !DarfSuchen()) {
        tmrListe.start(250);
        return;
    }
    const Mauszeiger Zeiger(Qt::BusyCursor);
    Aktualisieren();
}

}  // namespace liedwerk
