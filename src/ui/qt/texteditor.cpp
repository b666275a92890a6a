#include "ui/qt/texteditor.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Wartezeit = 3000;  // milliseconds for the desktop's answer

// The desktop entry that stands for plain text; empty when the desktop names none.
QString Editoreintrag() {
    QProcess Frage;
    Frage.start(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"text/plain"_s});
    if (!Frage.waitForFinished(Wartezeit)) return {};
    const QString Name = QString::fromUtf8(Frage.readAllStandardOutput()).trimmed();
    return Name.isEmpty() ? Name : QStandardPaths::locate(QStandardPaths::ApplicationsLocation, Name);
}

// The words of the entry's command (key Exec of a desktop entry, freedesktop.org); "%" codes of files become
// the file, all others go.
QStringList BefehlLesen(const QString& Eintrag, const QString& Datei) {
    QFile Quelle(Eintrag);
    if (Eintrag.isEmpty() || !Quelle.open(QIODevice::ReadOnly)) return {};
    for (const QByteArray& Zeile : Quelle.readAll().split('\n')) {
        if (!Zeile.startsWith("Exec=")) continue;
        QStringList Befehl;
        bool MitDatei = false;
        for (const QString& Wort : QProcess::splitCommand(QString::fromUtf8(Zeile.mid(5)).trimmed())) {
            const bool IstDatei = QStringList{u"%f"_s, u"%F"_s, u"%u"_s, u"%U"_s}.contains(Wort);
            MitDatei = MitDatei || IstDatei;
            if (IstDatei) {
                Befehl.append(Datei);
            } else if (!Wort.startsWith(u'%')) {
                Befehl.append(Wort);
            }
        }
        if (!MitDatei) Befehl.append(Datei);
        return Befehl;
    }
    return {};
}

}  // namespace

Programmlaufnummer MitTexteditorÖffnen(Programmstart& Programme, const std::string& Datei) {
    QStringList Befehl = BefehlLesen(Editoreintrag(), QtText(Datei));
    if (Befehl.size() < 2) return Programme.MitAnwendungÖffnen(Datei);
    std::vector<std::string> Argumente;
    for (const QString& Wort : Befehl.mid(1))
        Argumente.push_back(Utf8Text(Wort));
    return Programme.Starten(Programme.Finden(Utf8Text(Befehl[0])), Argumente);
}

}  // namespace liedwerk
