#include "ui/qt/frmbildanzeige.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageReader>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "basis/datei.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace liedwerk {
namespace {

constexpr std::uint64_t GrößteDatei = 256ULL * 1024 * 1024;  // bytes
constexpr int GrößteKante = 8000;                            // pixels; larger pictures are read smaller

// Lets a picture of the largest edges be read, with 16 bits for each of its colours: the limit is one for
// the whole program, and small beside today's cameras.
struct Bildgrenze {
    Bildgrenze() { QImageReader::setAllocationLimit(std::max(Vorher, GrößtesBild)); }
    Bildgrenze(const Bildgrenze&) = delete;
    Bildgrenze& operator=(const Bildgrenze&) = delete;
    ~Bildgrenze() { QImageReader::setAllocationLimit(Vorher); }
    static constexpr int GrößtesBild = static_cast<int>(8LL * GrößteKante * GrößteKante / (1024 * 1024)) + 1;
    const int Vorher = QImageReader::allocationLimit();  // MiB
};

// How the files of a format begin, and what Qt calls its decoder.
struct Bildformat {
    std::string_view Kennung;
    const char* Name;
    std::size_t Stelle = 0;  // of Kennung, in bytes
};
constexpr std::array<Bildformat, 9> Bildformate = {{{"\xFF\xD8\xFF"sv, "jpeg"},
                                                    {"\x89PNG\r\n\x1A\n"sv, "png"},
                                                    {"GIF87a"sv, "gif"},
                                                    {"GIF89a"sv, "gif"},
                                                    {"BM"sv, "bmp"},
                                                    {"\0\0\1\0"sv, "ico"},
                                                    {"WEBP"sv, "webp", 8},
                                                    {"II*\0"sv, "tiff"},
                                                    {"MM\0*"sv, "tiff"}}};

// The decoder for a file that begins so; empty when it is no picture of this closed list. Qt by itself would
// try whatever is installed, also formats that load other files by name or unpack without bound (SVG).
QByteArray Decoder(std::string_view Anfang) {
    for (const auto& [Kennung, Name, Stelle] : Bildformate) {
        if (Anfang.size() > Stelle && Anfang.substr(Stelle).starts_with(Kennung)) return Name;
    }
    return {};
}

QString Fehlertext(QImageReader::ImageReaderError Fehler) {
    switch (Fehler) {
        case QImageReader::UnsupportedFormatError:
            return u"Das Bild konnte nicht angezeigt werden: Die Datei ist kein Bild oder hat ein "
                   "unbekanntes Format."_s;
        case QImageReader::InvalidDataError:
            return u"Das Bild konnte nicht angezeigt werden: Die Datei ist beschädigt oder zu groß."_s;
        default:
            return u"Das Bild konnte nicht angezeigt werden."_s;
    }
}

// The picture of a file in the position in which it was taken; Fehler says why there is none. The file is
// read by its bytes, since Qt cannot name every file.
QPixmap BildLesen(std::string_view Pfad, QString& Fehler) {
    auto Inhalt = DateiLesen(Pfad, GrößteDatei);
    if (!Inhalt) {
        Fehler = u"Die Datei konnte nicht gelesen werden."_s;
        return {};
    }
    QByteArray Bytes = QByteArray::fromRawData(Inhalt->data(), static_cast<qsizetype>(Inhalt->size()));
    QBuffer Quelle(&Bytes);
    const Bildgrenze Grenze;
    const QByteArray Format = Decoder(*Inhalt);
    QImageReader Leser(&Quelle, Format);
    Leser.setAutoDetectImageFormat(false);
    Leser.setAutoTransform(true);
    const QSize Größe = Leser.size();
    if (Größe.width() > GrößteKante || Größe.height() > GrößteKante)
        Leser.setScaledSize(Größe.scaled(GrößteKante, GrößteKante, Qt::KeepAspectRatio));
    const QImage Gelesen = Format.isEmpty() ? QImage() : Leser.read();
    if (Gelesen.isNull())
        Fehler = Fehlertext(Format.isEmpty() ? QImageReader::UnsupportedFormatError : Leser.error()) +
                 u"\n\nMit 'Ausführen' öffnen Sie die Datei mit ihrer Standard-Anwendung."_s;
    return QPixmap::fromImage(Gelesen);
}

}  // namespace

frmBildAnzeige::frmBildAnzeige(std::string_view Pfad, QWidget* Eltern) : QDialog(Eltern) {
    setObjectName(u"frmBildAnzeige"_s);
    // "[*]" in a title stands for the mark of changes unless it is doubled.
    setWindowTitle(QtText(Pfad).replace(u"[*]"_s, u"[*][*]"_s) + u" - Bild-Anzeige"_s);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    imgViewer = new QLabel(this);
    imgViewer->setObjectName(u"imgViewer"_s);
    imgViewer->setAccessibleName(u"Bild "_s + QtText(Pfad));
    imgViewer->setAlignment(Qt::AlignCenter);
    imgViewer->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    auto* const Spalte = new QVBoxLayout(this);
    Spalte->setContentsMargins(0, 0, 0, 0);
    Spalte->addWidget(imgViewer);
    QString Fehler;
    Bild = BildLesen(Pfad, Fehler);
    imgViewer->setText(Fehler);
    imgViewer->setWordWrap(true);
    setMinimumSize(320, 240);
    const QSize Platz =
        (Eltern != nullptr ? Eltern->screen() : QGuiApplication::primaryScreen())->availableSize();
    const QSize Wunsch = Bild.isNull() ? QSize(480, 320) : Bild.deviceIndependentSize().toSize();
    const QSize Größter = Platz * 0.8;
    const bool Passt = Wunsch.boundedTo(Größter) == Wunsch;
    resize(Passt ? Wunsch : Wunsch.scaled(Größter, Qt::KeepAspectRatio));
}

void frmBildAnzeige::resizeEvent(QResizeEvent* Ereignis) {
    QDialog::resizeEvent(Ereignis);
    BildEinpassen();
}

void frmBildAnzeige::BildEinpassen() {
    if (Bild.isNull()) return;
    const qreal Dichte = devicePixelRatioF();
    const QSize Platz = (QSizeF(size()) * Dichte).toSize();
    // Small pictures are not blown up.
    const bool Passt = Bild.width() <= Platz.width() && Bild.height() <= Platz.height();
    QPixmap Gezeigt = Passt ? Bild : Bild.scaled(Platz, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    Gezeigt.setDevicePixelRatio(Dichte);
    imgViewer->setPixmap(Gezeigt);
}

}  // namespace liedwerk
