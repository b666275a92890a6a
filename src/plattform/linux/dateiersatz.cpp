// The replacement of a file as one commit: temporary file, flush, rename. POSIX.
#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "basis/datei.h"
#include "basis/dateiname.h"
#include "plattform/linux/griff.h"
#include "plattform/linux/systemfehler.h"

namespace liedwerk {
namespace {

constexpr std::size_t Puffergröße = 1 << 20;
constexpr int ZumSchreiben = O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW;
// The list of access rights beyond the mode, as Linux stores it.
constexpr std::string_view Zugriffsliste = "system.posix_acl_access";

// The state of the name itself, links not followed.
bool NameLesen(const std::string& Pfad, struct stat& Angaben) {
    return ::lstat(Pfad.c_str(), &Angaben) == 0;
}

// The path behind a chain of symbolic links at the end of Pfad, also when nothing lies there yet; nothing
// when the chain does not end.
std::optional<std::string> LetztesZiel(std::string Pfad) {
    constexpr int HöchsteTiefe = 40;  // the system's own bound
    for (int Tiefe = 0; Tiefe < HöchsteTiefe; ++Tiefe) {
        struct stat Angaben {};
        if (!NameLesen(Pfad, Angaben) || !S_ISLNK(Angaben.st_mode)) return Pfad;
        std::string Verweis(4096, '\0');
        const auto Länge = ::readlink(Pfad.c_str(), Verweis.data(), Verweis.size());
        if (Länge <= 0) return std::nullopt;
        Verweis.resize(static_cast<std::size_t>(Länge));
        if (Verweis.front() != '/') Verweis.insert(0, OrdnerVon(Pfad) + "/");
        Pfad = std::move(Verweis);
    }
    errno = ELOOP;
    return std::nullopt;
}

Dateifehler FremderName(const std::string& Temporär) {
    return Systemfehler(EEXIST,
                        "Unter dem vorläufigen Namen '" + Temporär +
                            "' liegt etwas, das nicht von diesem Programm stammt. Benennen Sie es um oder "
                            "löschen Sie es");
}

enum class Versuch { Geöffnet, Gesperrt, Nochmals, Gescheitert };

// A file of ours that was left behind with the mode of a write-protected target: makes it writable again,
// unless somebody holds it.
void BeschreibbarMachen(const std::string& Temporär) {
    const Griffhalter Griff(
        ::open(Temporär.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW));
    struct stat Angaben {};
    if (!Griff || ::fstat(Griff.Wert(), &Angaben) != 0) return;
    if (!S_ISREG(Angaben.st_mode) || Angaben.st_uid != ::geteuid() || Angaben.st_nlink != 1) return;
    if (::flock(Griff.Wert(), LOCK_EX | LOCK_NB) == 0) ::fchmod(Griff.Wert(), S_IRUSR | S_IWUSR);
}

// Opens the temporary name: creates it, or takes the file that lies there. Selbst tells that it was created.
int TemporärÖffnen(const std::string& Temporär, mode_t Rechte, bool& Selbst) {
    Selbst = false;
    int Griff = Beharrlich([&] { return ::open(Temporär.c_str(), ZumSchreiben | O_CREAT | O_EXCL, Rechte); });
    if (Griff >= 0) {
        Selbst = true;
        return Griff;
    }
    if (errno != EEXIST) return -1;
    Griff = Beharrlich([&] { return ::open(Temporär.c_str(), ZumSchreiben); });
    if (Griff < 0 && errno == EACCES) {
        BeschreibbarMachen(Temporär);
        Griff = Beharrlich([&] { return ::open(Temporär.c_str(), ZumSchreiben); });
    }
    return Griff;
}

// One attempt to get the temporary file into our hands: opened, ours, locked, still under its name, and
// new. What a run of ours has left behind is removed for the next attempt.
Versuch TemporärSperren(const std::string& Temporär, mode_t Rechte, Griffhalter& Ergebnis,
                        Dateifehler& Fehler) {
    bool Selbst = false;
    Griffhalter Neu(TemporärÖffnen(Temporär, Rechte, Selbst));
    if (!Neu) {
        if (errno == ENOENT) {
            struct stat Ordner {};
            // The name went between the two attempts to open it; or its folder is missing.
            if (::stat(OrdnerVon(Temporär).c_str(), &Ordner) == 0) return Versuch::Nochmals;
            errno = ENOENT;
        }
        Fehler = errno == ELOOP || errno == EISDIR || errno == ENXIO ? FremderName(Temporär)
                                                                     : LetzterSystemfehler();
        return Versuch::Gescheitert;
    }
    struct stat Offen {};
    if (::fstat(Neu.Wert(), &Offen) != 0) {
        Fehler = LetzterSystemfehler();
        return Versuch::Gescheitert;
    }
    // On file systems that know no owners, what we have created may seem to be another's.
    const bool Unsere =
        S_ISREG(Offen.st_mode) && Offen.st_nlink <= 1 && (Selbst || Offen.st_uid == ::geteuid());
    if (Beharrlich([&] { return ::flock(Neu.Wert(), LOCK_EX | LOCK_NB); }) != 0 && !SperrenFehlen(errno)) {
        if (errno == EWOULDBLOCK) return Versuch::Gesperrt;
        Fehler = LetzterSystemfehler();
        return Versuch::Gescheitert;
    }
    // Whoever held it may have renamed or removed it just before our lock.
    struct stat Name {};
    if (!NameLesen(Temporär, Name) || !DieselbeDatei(Offen, Name)) return Versuch::Nochmals;
    if (!Unsere) {
        Fehler = FremderName(Temporär);
        return Versuch::Gescheitert;
    }
    // What was left behind goes instead of being emptied: it has the mode of its time, and somebody may have
    // it open.
    if (!Selbst) {
        if (::unlink(Temporär.c_str()) == 0 || errno == ENOENT) return Versuch::Nochmals;
        Fehler = LetzterSystemfehler();
        return Versuch::Gescheitert;
    }
    Ergebnis.Tauschen(Neu);
    return Versuch::Geöffnet;
}

std::vector<std::string> MerkmaleAuflisten(const std::string& Pfad) {
    const auto Bedarf = ::llistxattr(Pfad.c_str(), nullptr, 0);
    if (Bedarf <= 0) return {};
    std::string Liste(static_cast<std::size_t>(Bedarf), '\0');
    const auto Länge = ::llistxattr(Pfad.c_str(), Liste.data(), Liste.size());
    if (Länge <= 0) return {};
    Liste.resize(static_cast<std::size_t>(Länge));
    std::vector<std::string> Namen;
    for (std::size_t Stelle = 0; Stelle < Liste.size(); Stelle += Namen.back().size() + 1) {
        Namen.emplace_back(Liste.c_str() + Stelle);
    }
    return Namen;
}

// Extended attributes, as many as the system lets us: some belong to the system alone, some file systems have
// none.
void MerkmaleÜbertragen(const std::string& Von, int Nach, bool MitZugriffsliste) {
    bool HatZugriffsliste = false;
    for (const auto& Name : MerkmaleAuflisten(Von)) {
        if (Name == Zugriffsliste) {
            if (!MitZugriffsliste) continue;
            HatZugriffsliste = true;
        }
        const auto Bedarf = ::lgetxattr(Von.c_str(), Name.c_str(), nullptr, 0);
        if (Bedarf < 0) continue;
        std::string Wert(static_cast<std::size_t>(Bedarf), '\0');
        const auto Länge = ::lgetxattr(Von.c_str(), Name.c_str(), Wert.data(), Wert.size());
        if (Länge >= 0) ::fsetxattr(Nach, Name.c_str(), Wert.data(), static_cast<std::size_t>(Länge), 0);
    }
    // The folder may have given the new file a list that the old one did not have.
    if (!HatZugriffsliste) ::fremovexattr(Nach, Zugriffsliste.data());
}

// Gives the new file owner, attributes and mode of the old one, where possible.
void EigenschaftenÜbertragen(const std::string& Von, const struct stat& Alt, int Nach) {
    struct stat Neu {};
    if (::fstat(Nach, &Neu) != 0) return;
    bool GruppeGleich = Neu.st_gid == Alt.st_gid;
    if (Neu.st_uid != Alt.st_uid && ::fchown(Nach, Alt.st_uid, Alt.st_gid) == 0) GruppeGleich = true;
    if (!GruppeGleich) GruppeGleich = ::fchown(Nach, static_cast<uid_t>(-1), Alt.st_gid) == 0;
    MerkmaleÜbertragen(Von, Nach, GruppeGleich);
    mode_t Rechte = Alt.st_mode & 07777;
    // Another group than before gets no more than everybody has.
    if (!GruppeGleich) Rechte = (Rechte & ~static_cast<mode_t>(02070)) | ((Rechte & 07) << 3);
    ::fchmod(Nach, Rechte);
}

bool AllesSchreiben(int Griff, std::string_view Bytes, Dateifehler& Fehler) {
    while (!Bytes.empty()) {
        const auto Anzahl = Beharrlich([&] { return ::write(Griff, Bytes.data(), Bytes.size()); });
        if (Anzahl <= 0) {
            Fehler = Anzahl < 0 ? LetzterSystemfehler() : Systemfehler(EIO);
            return false;
        }
        Bytes.remove_prefix(static_cast<std::size_t>(Anzahl));
    }
    return true;
}

}  // namespace

std::string VorläufigerName(std::string_view Datei) {
    return PfadMitEndung(VerweiseAuflösen(Datei), VorläufigeEndung);
}

std::string VerweiseAuflösen(std::string_view Pfad) {
    const auto Name = Systempfad(Pfad);
    return Name ? LetztesZiel(*Name).value_or(*Name) : std::string(Pfad);
}

Dateiersatz::~Dateiersatz() {
    Verwerfen();
}

Dateiersatz::Öffnung Dateiersatz::Öffnen(std::string Ziel, std::string Temporär, std::string Vorbild,
                                         Zugang FürNeue) {
    Verwerfen();
    ErsterFehler = {};
    const auto Scheitern = [&](Dateifehler Grund) {
        ErsterFehler = std::move(Grund);
        return Öffnung::Fehler;
    };
    if (Ziel.empty() || Temporär.empty()) return Scheitern(Systemfehler(ENOENT));
    if (!Systempfad(Ziel) || !Systempfad(Temporär)) return Scheitern(LetzterSystemfehler());
    const std::string Ordner = OrdnerVon(Ziel);
    const auto Letztes = LetztesZiel(std::move(Ziel));
    if (!Letztes) return Scheitern(LetzterSystemfehler());
    // Only within one folder a rename is sure to be one step.
    if (OrdnerVon(*Letztes) != Ordner) {
        Temporär = OrdnerVon(*Letztes) + "/" + Temporär.substr(Temporär.rfind('/') + 1);
    }
    // The content of a file that others may not read must not be readable meanwhile either.
    mode_t Rechte = Vorbild.empty() && FürNeue == Zugang::Üblich ? 0666 : S_IRUSR | S_IWUSR;
    struct stat Alt {};
    if (NameLesen(*Letztes, Alt)) {
        if (S_ISDIR(Alt.st_mode)) return Scheitern(Systemfehler(EISDIR));
        if (!S_ISREG(Alt.st_mode))
            return Scheitern(Systemfehler(EINVAL, "Das Ziel ist keine gewöhnliche Datei"));
        Rechte = S_IRUSR | S_IWUSR;
    }
    constexpr int HöchsteVersuche = 20;
    for (int Nummer = 0; Nummer < HöchsteVersuche; ++Nummer) {
        Griffhalter Neu;
        switch (TemporärSperren(Temporär, Rechte, Neu, ErsterFehler)) {
            case Versuch::Nochmals:
                continue;
            case Versuch::Gesperrt:
                return Öffnung::Gesperrt;
            case Versuch::Gescheitert:
                return Öffnung::Fehler;
            case Versuch::Geöffnet:
                Griff = Neu.Lösen();
                Zielpfad = *Letztes;
                Temporärpfad = std::move(Temporär);
                Vorbildpfad = std::move(Vorbild);
                NurFürEigenen = FürNeue == Zugang::NurEigener;
                return Öffnung::Bereit;
        }
    }
    return Öffnung::Gesperrt;
}

bool Dateiersatz::Leeren() {
    if (ErsterFehler) return false;
    const bool Gelungen = AllesSchreiben(Griff, Puffer, ErsterFehler);
    Puffer.clear();
    return Gelungen;
}

bool Dateiersatz::Schreiben(std::string_view Bytes) {
    if (Griff < 0 && !ErsterFehler)
        ErsterFehler = Systemfehler(EBADF, "Die Datei ist nicht zum Schreiben geöffnet");
    if (ErsterFehler) return false;
    if (Puffer.size() + Bytes.size() > Puffergröße && !Leeren()) return false;
    if (Bytes.size() >= Puffergröße) return AllesSchreiben(Griff, Bytes, ErsterFehler);
    Puffer += Bytes;
    return true;
}

bool Dateiersatz::Kopieren(const Lesedatei& Quelle, std::uint64_t Stelle, std::uint64_t Länge,
                           const Kopierfortschritt& Weiter) {
    if (!Quelle.Offen() && !ErsterFehler) ErsterFehler = Systemfehler(EBADF, "Die Quelle ist nicht geöffnet");
    std::string Block(static_cast<std::size_t>(std::min<std::uint64_t>(Länge, Puffergröße)), '\0');
    while (Länge > 0) {
        const auto Gewünscht = static_cast<std::size_t>(std::min<std::uint64_t>(Block.size(), Länge));
        if (Quelle.Lesen(Block.data(), Stelle, Gewünscht) != Gewünscht) {
            if (!ErsterFehler) ErsterFehler = Systemfehler(EIO, "Die Quelle kann nicht ganz gelesen werden");
            return false;
        }
        if (!Schreiben(std::string_view(Block.data(), Gewünscht))) return false;
        Stelle += Gewünscht;
        Länge -= Gewünscht;
        if (Weiter && !Weiter(Stelle)) {
            ErsterFehler = Systemfehler(ECANCELED);
            return false;
        }
    }
    return Schreiben({});
}

bool Dateiersatz::Kopieren(const Lesedatei& Quelle, const Kopierfortschritt& Weiter) {
    if (!Kopieren(Quelle, 0, Quelle.Größe(), Weiter)) return false;
    struct stat Angaben {};
    ZeitBehalten = ::fstat(Quelle.Griff, &Angaben) == 0;
    if (ZeitBehalten) {
        ZeitSekunden = Angaben.st_mtim.tv_sec;
        ZeitNanosekunden = Angaben.st_mtim.tv_nsec;
    }
    return Schreiben({});
}

bool Dateiersatz::Übernehmen(bool BehalteTemporär, Vorhandenes Regel) {
    const auto Scheitern = [&](Dateifehler Grund) {
        if (!ErsterFehler) ErsterFehler = std::move(Grund);
        Verwerfen();
        return false;
    };
    if (!Schreiben({}) || !Leeren()) return Scheitern({});
    struct stat Alt {};
    const bool Neu = !NameLesen(Zielpfad, Alt) || !S_ISREG(Alt.st_mode);
    if (!Neu) EigenschaftenÜbertragen(Zielpfad, Alt, Griff);
    if (Neu && !Vorbildpfad.empty() && ::stat(Vorbildpfad.c_str(), &Alt) == 0)
        EigenschaftenÜbertragen(VerweiseAuflösen(Vorbildpfad), Alt, Griff);
    struct stat Jetzige {};
    if (NurFürEigenen && ::fstat(Griff, &Jetzige) == 0 && (Jetzige.st_mode & S_IRWXO) != 0)
        ::fchmod(Griff, Jetzige.st_mode & 07770);
    if (ZeitBehalten) {
        const timespec Zeiten[2] = {{0, UTIME_OMIT}, {ZeitSekunden, ZeitNanosekunden}};
        ::futimens(Griff, Zeiten);
    }
    if (!Festschreiben(Griff)) return Scheitern(LetzterSystemfehler());
    struct stat Offen {};
    struct stat Name {};
    if (::fstat(Griff, &Offen) != 0) return Scheitern(LetzterSystemfehler());
    // What a stranger has put under our name must not become the target.
    if (!NameLesen(Temporärpfad, Name) || !DieselbeDatei(Offen, Name)) {
        return Scheitern(Systemfehler(EBUSY, "Die vorläufige Datei '" + Temporärpfad +
                                                 "' wurde während des Schreibens entfernt oder ersetzt"));
    }
    if (!NameWechseln(Temporärpfad, Zielpfad, Regel)) {
        ErsterFehler = LetzterSystemfehler();
        if (BehalteTemporär) Schließen();
        Verwerfen();
        return false;
    }
    OrdnerFestschreiben(OrdnerVon(Zielpfad));
    Zustand = StandVon(Offen);
    Schließen();
    return true;
}

void Dateiersatz::Schließen() {
    if (Griff >= 0) ::close(std::exchange(Griff, -1));
    Puffer.clear();
    ZeitBehalten = false;
}

void Dateiersatz::Verwerfen() {
    if (Griff < 0) return;
    struct stat Offen {};
    struct stat Name {};
    // While we hold the lock nobody of ours takes the name; a stranger's file under it stays.
    if (::fstat(Griff, &Offen) == 0 && NameLesen(Temporärpfad, Name) && DieselbeDatei(Offen, Name) &&
        ::unlink(Temporärpfad.c_str()) != 0 && ErsterFehler)
        ErsterFehler.Text += HilfsdateiBleibt(Temporärpfad);
    Schließen();
}

}  // namespace liedwerk
