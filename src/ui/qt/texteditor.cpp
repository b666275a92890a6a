#include "ui/qt/texteditor.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <optional>

#include "basis/pfad.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Wartezeit = 3000;             // milliseconds for the desktop's answer
constexpr qint64 GrößterEintrag = 1 << 20;  // bytes of a desktop entry that are read

// The desktop entry that stands for plain text; empty when the desktop names none.
QString Editoreintrag() {
    QProcess Frage;
    Frage.start(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"text/plain"_s});
    if (!Frage.waitForFinished(Wartezeit)) return {};
    const QString Name = QString::fromUtf8(Frage.readAllStandardOutput()).trimmed();
    return Name.isEmpty() ? Name : QStandardPaths::locate(QStandardPaths::ApplicationsLocation, Name);
}

// A word of the command: "%%" stands for "%", a code of files for the file. Nothing when the word is a code
// that has no value here.
std::optional<std::string> WortEinsetzen(const std::string& Wort, const std::string& Datei, bool& MitDatei) {
    std::string Ergebnis;
    bool Weggefallen = false;
    for (std::size_t Stelle = 0; Stelle < Wort.size(); ++Stelle) {
        if (Wort[Stelle] != '%' || Stelle + 1 == Wort.size()) {
            Ergebnis += Wort[Stelle];
            continue;
        }
        const char Code = Wort[++Stelle];
        const bool IstDatei = std::string_view("fFuU").find(Code) != std::string_view::npos;
        if (IstDatei) Ergebnis += Datei;
        if (Code == '%') Ergebnis += Code;
        MitDatei = MitDatei || IstDatei;
        Weggefallen = Weggefallen || (!IstDatei && Code != '%');
    }
    if (Weggefallen && Ergebnis.empty()) return std::nullopt;
    return Ergebnis;
}

}  // namespace

std::vector<std::string> Editorbefehl(const QByteArray& Eintrag, const std::string& Datei) {
    QByteArray Ausführung;
    bool InGruppe = false;
    for (const QByteArray& Roh : Eintrag.split('\n')) {
        const QByteArray Zeile = Roh.trimmed();
        if (Zeile.startsWith('[')) InGruppe = Zeile == "[Desktop Entry]";
        if (!InGruppe) continue;
        if (Zeile == "Terminal=true") return {};
        if (Zeile.startsWith("Exec=") && Ausführung.isEmpty()) Ausführung = Zeile.mid(5);
    }
    std::vector<std::string> Befehl;
    bool MitDatei = false;
    for (const QString& Wort : QProcess::splitCommand(QString::fromUtf8(Ausführung))) {
        if (auto Ganz = WortEinsetzen(Utf8Text(Wort), Datei, MitDatei)) Befehl.push_back(std::move(*Ganz));
    }
    if (!Befehl.empty() && !MitDatei) Befehl.push_back(Datei);
    return Befehl;
}

Programmlaufnummer MitTexteditorÖffnen(Programmstart& Programme, const std::string& Datei) {
    QFile Eintrag(Editoreintrag());
    std::vector<std::string> Befehl;
    if (Eintrag.exists() && Eintrag.open(QIODevice::ReadOnly))
        Befehl = Editorbefehl(Eintrag.read(GrößterEintrag), Datei);
    if (Befehl.size() < 2) return Programme.MitAnwendungÖffnen(Datei);
    const std::string Programm = IstPosixPfad(Befehl[0]) ? Befehl[0] : Programme.Finden(Befehl[0]);
    return Programme.Starten(Programm, {Befehl.begin() + 1, Befehl.end()});
}

}  // namespace liedwerk
