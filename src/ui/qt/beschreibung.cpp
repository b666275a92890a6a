#include "ui/qt/beschreibung.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTextDocument>
#include <QVBoxLayout>

#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;
using namespace std::string_literals;

namespace liedwerk {
namespace {

constexpr int RuheMillisekunden = 80;  // key repeat is faster than that

// A colour between text and background, readable on it; the pane lies on the window.
QColor Blasse(const QPalette& Palette) {
    const QColor Schrift = Palette.color(QPalette::WindowText);
    const QColor Grund = Palette.color(QPalette::Window);
    const auto Mischen = [](int A, int B) { return (A * 68 + B * 32) / 100; };
    return {Mischen(Schrift.red(), Grund.red()), Mischen(Schrift.green(), Grund.green()),
            Mischen(Schrift.blue(), Grund.blue())};
}

}  // namespace

QString InfotextAlsHtml(std::string_view Text, const QColor& Blass) {
    QString Ergebnis;
    QString Tabelle;
    // Lines of one kind that follow each other stand together; all stay in their order.
    const auto TabelleSchließen = [&] {
        if (!Tabelle.isEmpty())
            Ergebnis += u"<table width='100%' cellspacing='0'>"_s + Tabelle + u"</table>"_s;
        Tabelle.clear();
    };
    const QStringList Zeilen = QtText(Text).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& Zeile : Zeilen) {
        const qsizetype Trennung = Zeile.indexOf(u": ");
        if (Trennung < 0 || Zeile.startsWith(u"Hinweis: ")) {
            TabelleSchließen();
            Ergebnis += u"<p style='color:%1'>%2</p>"_s.arg(Blass.name(), Zeile.trimmed().toHtmlEscaped());
            continue;
        }
        const QString Wert = Zeile.mid(Trennung + 2).trimmed();
        Tabelle +=
            u"<tr><td style='color:%1;padding:2px 10px 2px 0'>%2</td><td style='padding:2px 0'>%3</td></tr>"_s
                .arg(Blass.name(), Zeile.left(Trennung).toHtmlEscaped(),
                     Wert.isEmpty() ? u"–"_s : Wert.toHtmlEscaped());
    }
    TabelleSchließen();
    return Ergebnis;
}

Beschreibung::Beschreibung(QWidget* Eltern) : QWidget(Eltern) {
    setObjectName(u"fraBeschreibung"_s);
    lblBeschreibungTitel = new QLabel(this);
    lblBeschreibungTitel->setObjectName(u"lblBeschreibungTitel"_s);
    lblBeschreibungTitel->setTextFormat(Qt::PlainText);
    lblBeschreibungTitel->setWordWrap(true);
    QFont Schrift = lblBeschreibungTitel->font();
    Schrift.setBold(true);
    Schrift.setPointSizeF(Schrift.pointSizeF() * 1.15);
    lblBeschreibungTitel->setFont(Schrift);
    lblBeschreibungUntertitel = new QLabel(this);
    lblBeschreibungUntertitel->setObjectName(u"lblBeschreibungUntertitel"_s);
    lblBeschreibungUntertitel->setTextFormat(Qt::PlainText);
    lblBeschreibungUntertitel->setWordWrap(true);
    txtBeschreibung = new QTextBrowser(this);
    txtBeschreibung->setObjectName(u"txtBeschreibung"_s);
    txtBeschreibung->setAccessibleName(u"Beschreibung der gewählten Datei"_s);
    txtBeschreibung->setOpenLinks(false);
    txtBeschreibung->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    txtBeschreibung->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    txtBeschreibung->setTabChangesFocus(true);
    txtBeschreibung->setFrameShape(QFrame::NoFrame);
    txtBeschreibung->viewport()->setAutoFillBackground(false);
    txtBeschreibung->document()->setDocumentMargin(0);
    TextFärben();
    auto* const Spalte = new QVBoxLayout(this);
    Spalte->setContentsMargins(8, 4, 0, 0);
    Spalte->setSpacing(6);
    Spalte->addWidget(lblBeschreibungTitel);
    Spalte->addWidget(lblBeschreibungUntertitel);
    Spalte->addWidget(txtBeschreibung, 1);
    Ruhe.setSingleShot(true);
    Ruhe.setInterval(RuheMillisekunden);
    connect(&Ruhe, &QTimer::timeout, this, [this] { Starten(); });
    Fäden.setMaxThreadCount(1);
}

Beschreibung::~Beschreibung() {
    Lebendig.reset();  // answers under way find nobody
    Fäden.clear();
    Fäden.waitForDone();
}

void Beschreibung::HinweisZeigen(const QString& Text) {
    ++Nummer;
    Ruhe.stop();
    Gezeigt.clear();
    lblBeschreibungTitel->hide();
    lblBeschreibungUntertitel->hide();
    txtBeschreibung->setPlainText(Text);
}

void Beschreibung::DateiZeigen(const QString& Titel, const QString& Untertitel, Auftrag Lesen) {
    ++Nummer;
    lblBeschreibungTitel->setText(Titel);
    lblBeschreibungTitel->show();
    lblBeschreibungUntertitel->setText(Untertitel);
    lblBeschreibungUntertitel->setVisible(!Untertitel.isEmpty());
    Nächster = std::move(Lesen);
    Ruhe.start();
}

void Beschreibung::Starten() {
    Fäden.clear();
    // The answer is looked at by the event loop of the windows, where the weak pointer tells whether the
    // pane is still there.
    Fäden.start([Lesen = std::move(Nächster), Meine = Nummer, Empfänger = std::weak_ptr(Lebendig), this] {
        auto Info = std::make_shared<Dateiinformation>();
        try {
            *Info = Lesen();
        } catch (const std::exception& Fehler) {
            // One that leaves a thread ends the program.
            Info->Info = "Hinweis: Die Datei konnte nicht gelesen werden ("s + Fehler.what() + ").";
        }
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [this, Info, Meine, Empfänger] {
                if (!Empfänger.expired() && Meine == Nummer) InfoZeigen(*Info);
            },
            Qt::QueuedConnection);
    });
}

void Beschreibung::InfoZeigen(const Dateiinformation& Info) {
    Gezeigt = Info.Info;
    txtBeschreibung->setHtml(InfotextAlsHtml(Gezeigt, Blasse(palette())));
}

// The pane lies on the window, not on the ground of lists.
void Beschreibung::TextFärben() {
    QPalette Farben;
    Farben.setColor(QPalette::Text, palette().color(QPalette::WindowText));
    txtBeschreibung->setPalette(Farben);
}

void Beschreibung::changeEvent(QEvent* Ereignis) {
    QWidget::changeEvent(Ereignis);
    if (Ereignis->type() != QEvent::PaletteChange || txtBeschreibung == nullptr) return;
    TextFärben();
    // The text carries the pale colour of the palette of its time.
    if (!Gezeigt.empty()) txtBeschreibung->setHtml(InfotextAlsHtml(Gezeigt, Blasse(palette())));
}

}  // namespace liedwerk
