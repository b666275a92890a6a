#include "plattform/linux/systemfehler.h"

#include <cerrno>
#include <system_error>

namespace liedwerk {
namespace {

struct Fehlertext {
    int Nummer;
    std::string_view Text;
};

constexpr Fehlertext Fehlertexte[] = {
    {EACCES, "Zugriff verweigert: die nötigen Berechtigungen fehlen"},
    {EAGAIN, "Die Datei wird gerade von einem anderen Programm benutzt"},
    {EBUSY, "Die Datei oder der Ordner wird gerade benutzt"},
    {ECANCELED, "Der Vorgang wurde abgebrochen"},
    {EDQUOT, "Der zugeteilte Speicherplatz ist verbraucht"},
    {EEXIST, "Eine Datei oder ein Ordner dieses Namens ist schon vorhanden"},
    {EFBIG, "Die Datei würde größer, als es hier erlaubt ist"},
    {EINVAL, "Der Name oder der Vorgang ist hier nicht zulässig"},
    {EIO, "Fehler beim Lesen oder Schreiben auf dem Datenträger"},
    {EISDIR, "Unter diesem Namen liegt ein Ordner"},
    {ELOOP, "Unter diesem Namen liegt eine Verknüpfung, der nicht gefolgt werden kann"},
    {EMFILE, "Es sind zu viele Dateien gleichzeitig geöffnet"},
    {ENFILE, "Im System sind zu viele Dateien gleichzeitig geöffnet"},
    {EMLINK, "Es gibt zu viele Verknüpfungen auf diese Datei"},
    {ENAMETOOLONG, "Der Name ist zu lang"},
    {ENODEV, "Das Laufwerk ist nicht vorhanden"},
    {ENOENT, "Die Datei oder der Ordner ist nicht vorhanden"},
    {ENOLCK, "Die Datei kann nicht gesperrt werden"},
    {ENOMEM, "Der Arbeitsspeicher reicht nicht aus"},
    {ENOSPC, "Auf dem Datenträger ist kein Platz mehr"},
    {ENOTCONN, "Das Netzlaufwerk ist nicht verbunden"},
    {ENOTDIR, "Ein Teil des Pfades ist kein Ordner"},
    {ENOTEMPTY, "Der Ordner ist nicht leer"},
    {ENXIO, "Das Gerät ist nicht vorhanden"},
    {EPERM, "Der Vorgang ist nicht erlaubt"},
    {EROFS, "Der Datenträger ist schreibgeschützt"},
    {ESTALE, "Das Netzlaufwerk kennt die Datei nicht mehr"},
    {ETIMEDOUT, "Das Laufwerk hat nicht rechtzeitig geantwortet"},
    {ETXTBSY, "Die Datei ist ein Programm, das gerade läuft"},
    {EXDEV, "Quelle und Ziel liegen auf verschiedenen Laufwerken"},
};

}  // namespace

Dateifehler Systemfehler(int Nummer) {
    for (const auto& Eintrag : Fehlertexte) {
        if (Eintrag.Nummer == Nummer) return {Nummer, std::string(Eintrag.Text)};
    }
    return {Nummer, std::generic_category().message(Nummer)};
}

Dateifehler LetzterSystemfehler() {
    return Systemfehler(errno);
}

Dateifehler Systemfehler(int Nummer, std::string_view Text) {
    return {Nummer, std::string(Text)};
}

}  // namespace liedwerk
