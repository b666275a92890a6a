#include "plattform/qt/papierkorb.h"

#include <QFile>
#include <cerrno>

namespace liedwerk {

Dateifehler Desktoppapierkorb::Verschieben(std::string_view Pfad) {
    const QString Name = QString::fromUtf8(Pfad.data(), static_cast<qsizetype>(Pfad.size()));
    // The bin knows names as text: one that does not come back as it was would be another file's.
    if (Name.toUtf8() != QByteArrayView(Pfad.data(), static_cast<qsizetype>(Pfad.size())))
        return {EINVAL, "Der Dateiname enthält Zeichen, mit denen der Papierkorb nicht umgehen kann"};
    if (!DateiExistiert(Pfad)) return {ENOENT, "Die Datei ist nicht vorhanden"};
    QFile Datei(Name);
    if (!Datei.moveToTrash()) return {EIO, "Der Papierkorb dieses Laufwerks hat die Datei nicht angenommen"};
    return {};
}

}  // namespace liedwerk
