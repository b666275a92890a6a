#include "ui/qt/symbole.h"

#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <array>

#include "basis/pfad.h"
#include "basis/text.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

QColor Strichfarbe(QIcon::Mode Zustand) {
    const QPalette Palette = QGuiApplication::palette();
    switch (Zustand) {
        case QIcon::Disabled:
            return Palette.color(QPalette::Disabled, QPalette::WindowText);
        case QIcon::Selected:
            return Palette.color(QPalette::Active, QPalette::HighlightedText);
        default:
            return Palette.color(QPalette::Active, QPalette::WindowText);
    }
}

// Draws an SVG whose "currentColor" is the palette's colour at the time of drawing.
class Palettenzeichnung final : public QIconEngine {
  public:
    explicit Palettenzeichnung(QString Quelle) : Datei(std::move(Quelle)) {}

    void paint(QPainter* Maler, const QRect& Rechteck, QIcon::Mode Zustand, QIcon::State An) override {
        const qreal Dichte = Maler->device()->devicePixelRatioF();
        QPixmap Bild = pixmap(Rechteck.size() * Dichte, Zustand, An);
        Bild.setDevicePixelRatio(Dichte);
        Maler->drawPixmap(Rechteck, Bild);
    }
    QPixmap pixmap(const QSize& Größe, QIcon::Mode Zustand, QIcon::State) override {
        const QColor Farbe = Strichfarbe(Zustand);
        const QString Schlüssel =
            u"%1|%2|%3|%4"_s.arg(Datei).arg(Größe.width()).arg(Größe.height()).arg(Farbe.rgba());
        QPixmap Bild;
        if (QPixmapCache::find(Schlüssel, &Bild)) return Bild;
        QFile Quelle(Datei);
        if (!Quelle.open(QIODevice::ReadOnly)) return {};
        QSvgRenderer Zeichnung(Quelle.readAll().replace("currentColor", Farbe.name().toLatin1()));
        Bild = QPixmap(Größe);
        Bild.fill(Qt::transparent);
        QPainter Maler(&Bild);
        Zeichnung.setAspectRatioMode(Qt::KeepAspectRatio);
        Zeichnung.render(&Maler, QRectF(QPointF(), QSizeF(Größe)));
        Maler.end();
        QPixmapCache::insert(Schlüssel, Bild);
        return Bild;
    }
    QIconEngine* clone() const override { return new Palettenzeichnung(Datei); }

  private:
    QString Datei;
};

enum Art : std::size_t { Audio, Film, Bild, Cd, Sonstige };

// Only the look depends on this table; what a file is, the index's own file types say.
constexpr std::array<std::pair<std::string_view, Art>, 34> Endungen = {{
    {".mp3", Audio}, {".mp2", Audio}, {".mp1", Audio}, {".mpa", Audio},  {".aac", Audio}, {".ogg", Audio},
    {".oga", Audio}, {".wav", Audio}, {".wma", Audio}, {".flac", Audio}, {".m4a", Audio}, {".opus", Audio},
    {".ape", Audio}, {".mpc", Audio}, {".aif", Audio}, {".aiff", Audio}, {".mid", Audio}, {".midi", Audio},
    {".mod", Audio}, {".au", Audio},  {".avi", Film},  {".mpg", Film},   {".mpeg", Film}, {".mp4", Film},
    {".mkv", Film},  {".wmv", Film},  {".mov", Film},  {".jpg", Bild},   {".jpeg", Bild}, {".png", Bild},
    {".gif", Bild},  {".bmp", Bild},  {".webp", Bild}, {".cda", Cd},
}};

}  // namespace

QIcon Symbolbild(const char* Name) {
    return QIcon(new Palettenzeichnung(u":/symbole/"_s + QLatin1String(Name) + u".svg"_s));
}

QIcon Programmsymbol() {
    return QIcon(u":/symbole/liedwerk.svg"_s);
}

Symbolfeld::Symbolfeld(QIcon Symbol, int Kante, QIcon::Mode Zustand, QWidget* Eltern)
    : QLabel(Eltern), Bild(std::move(Symbol)), Seite(Kante), Art(Zustand) {
    Zeichnen();
}

void Symbolfeld::changeEvent(QEvent* Ereignis) {
    QLabel::changeEvent(Ereignis);
    if (Ereignis->type() == QEvent::PaletteChange) Zeichnen();
}

void Symbolfeld::Zeichnen() {
    setPixmap(Bild.pixmap(QSize(Seite, Seite), devicePixelRatioF(), Art));
}

const Dateisymbol& DateisymbolVon(std::string_view Pfad) {
    static const std::array<Dateisymbol, 5> Bilder = {{
        {Symbolbild("musik"), u"Audiodatei"_s},
        {Symbolbild("film"), u"Videodatei"_s},
        {Symbolbild("bild"), u"Bilddatei"_s},
        {Symbolbild("cd"), u"CD-Titel"_s},
        {Symbolbild("datei"), u"Datei"_s},
    }};
    const std::string_view Endung = EndungVon(Pfad);
    for (const auto& [Name, Sorte] : Endungen) {
        if (GleichOhneGroß(Name, Endung)) return Bilder[Sorte];
    }
    return Bilder[Sonstige];
}

const Dateisymbol& Ordnersymbol() {
    static const Dateisymbol Bild{Symbolbild("ordner"), u"Ordner"_s};
    return Bild;
}

}  // namespace liedwerk
