#include "plattform/linux/papierkorb.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "basis/datum.h"
#include "basis/pfad.h"
#include "basis/uri.h"
#include "plattform/linux/einhaengungen.h"
#include "plattform/linux/griff.h"
#include "plattform/linux/orte.h"
#include "plattform/linux/systemfehler.h"
#include "plattform/linux/uhr.h"

namespace liedwerk {
namespace {

constexpr std::string_view Angabenendung = ".trashinfo";

// A bin: its folder, and the one that the paths in it begin at; empty: they are full.
struct Eimer {
    std::string Ordner;
    std::string Wurzel;
};

// The file system of a name itself, or of the nearest folder above it that is there.
std::optional<dev_t> GerätVon(std::string Pfad) {
    struct stat Angaben {};
    while (::lstat(Pfad.c_str(), &Angaben) != 0) {
        if (errno != ENOENT || Pfad == "/" || Pfad == ".") return std::nullopt;
        Pfad = OrdnerVon(Pfad);
    }
    return Angaben.st_dev;
}

// The topmost folder above the file on its file system.
std::string WurzelVon(std::string Ordner, dev_t Gerät) {
    while (Ordner != "/") {
        const std::string Darüber = OrdnerVon(Ordner);
        if (GerätVon(Darüber) != Gerät) break;
        Ordner = Darüber;
    }
    return Ordner;
}

// A folder of this person alone, made when it is missing; a link would lead who knows where.
bool EigenerOrdner(const std::string& Ordner) {
    struct stat Angaben {};
    if (::mkdir(Ordner.c_str(), S_IRWXU) != 0 && errno != EEXIST) return false;
    return ::lstat(Ordner.c_str(), &Angaben) == 0 && S_ISDIR(Angaben.st_mode) &&
           Angaben.st_uid == ::geteuid();
}

// The bin that an administrator has set up for all, else one of the person's own.
std::optional<Eimer> EimerDesLaufwerks(const std::string& Wurzel) {
    const std::string Kennung = std::to_string(::geteuid());
    const std::string Aller = PfadVerbinden(Wurzel, ".Trash");
    struct stat Angaben {};
    const bool Gemeinsam =
        ::lstat(Aller.c_str(), &Angaben) == 0 && S_ISDIR(Angaben.st_mode) && (Angaben.st_mode & S_ISVTX) != 0;
    if (Gemeinsam && EigenerOrdner(PfadVerbinden(Aller, Kennung)))
        return Eimer{PfadVerbinden(Aller, Kennung), Wurzel};
    const std::string Eigener = PfadVerbinden(Wurzel, ".Trash-" + Kennung);
    if (EigenerOrdner(Eigener)) return Eimer{Eigener, Wurzel};
    return std::nullopt;
}

std::optional<Eimer> EimerWählen(const std::string& Pfad) {
    // A rename is between folders; the file's own name may be a link, which goes by itself.
    const auto Gerät = GerätVon(OrdnerVon(Pfad));
    if (!Gerät) return std::nullopt;
    const std::string Daten = LinksFolgen(Datenordner());
    if (GerätVon(Daten) == Gerät) {
        const std::string Ordner = PfadVerbinden(Daten, "Trash");
        if (!OrdnerAnlegen(Daten, Zugang::NurEigener) && EigenerOrdner(Ordner)) return Eimer{Ordner, {}};
        return std::nullopt;
    }
    return EimerDesLaufwerks(WurzelVon(OrdnerVon(Pfad), *Gerät));
}

// The path as the format has it: bytes of names encoded, the separators plain.
std::string Ortsangabe(const std::string& Pfad) {
    std::string Kodiert;
    for (std::size_t Anfang = 0; Anfang <= Pfad.size();) {
        const std::size_t Ende = std::min(Pfad.find('/', Anfang), Pfad.size());
        Kodiert += ProzentKodieren(std::string_view(Pfad).substr(Anfang, Ende - Anfang));
        if (Ende < Pfad.size()) Kodiert += '/';
        Anfang = Ende + 1;
    }
    return Kodiert;
}

// What brings the file back: where it was, and since when it is here.
std::string Angaben(const Eimer& Wohin, const std::string& Pfad) {
    std::string Ort = Pfad;
    if (!Wohin.Wurzel.empty()) Ort.erase(0, MitTrenner(Wohin.Wurzel).size());
    std::string Zeit = ZeitSortierText(Systemuhr().Jetzt());  // yyyymmddhhnnss
    for (const std::size_t Stelle : {12U, 10U})
        Zeit.insert(Stelle, ":");
    Zeit.insert(8, "T");
    for (const std::size_t Stelle : {6U, 4U})
        Zeit.insert(Stelle, "-");
    return "[Trash Info]\nPath=" + Ortsangabe(Ort) + "\nDeletionDate=" + Zeit + "\n";
}

// A name in the bin; a number tells those of one name apart, and nothing is longer than a name may be.
std::string NameImEimer(std::string_view Name, int Nummer) {
    constexpr std::size_t Höchstens = 220;
    std::size_t Länge = std::min(Name.size(), Höchstens);
    // Half a character is no name everywhere.
    while (Länge > 0 && Länge < Name.size() && (static_cast<unsigned char>(Name[Länge]) & 0xC0U) == 0x80U)
        --Länge;
    std::string Neu(Name.substr(0, Länge));
    return Nummer == 1 ? Neu : Neu + "." + std::to_string(Nummer);
}

std::string OrtDerDatei(const Eimer& Wohin, const std::string& Name) {
    return PfadVerbinden(PfadVerbinden(Wohin.Ordner, "files"), Name);
}

std::string OrtDerAngaben(const Eimer& Wohin, const std::string& Name) {
    return PfadVerbinden(PfadVerbinden(Wohin.Ordner, "info"), Name + std::string(Angabenendung));
}

// Whether a name is taken in the bin. Only a look: each real attempt waits for the disk.
bool Belegt(const Eimer& Wohin, const std::string& Name) {
    struct stat Stand {};
    return ::lstat(OrtDerDatei(Wohin, Name).c_str(), &Stand) == 0 ||
           ::lstat(OrtDerAngaben(Wohin, Name).c_str(), &Stand) == 0;
}

// Puts down the information under a name that is free in the bin.
Dateifehler AngabenSchreiben(const Eimer& Wohin, const std::string& Inhalt, const std::string& Name) {
    const std::string Datei = OrtDerAngaben(Wohin, Name);
    Dateiersatz Ersatz;
    if (Ersatz.Öffnen(Datei, VorläufigerName(Datei)) == Dateiersatz::Öffnung::Gesperrt)
        return Systemfehler(EEXIST);
    if (Ersatz.Schreiben(Inhalt) && Ersatz.Übernehmen(false, Vorhandenes::Lassen)) return {};
    return Ersatz.Fehler();
}

Dateifehler Ablegen(const Eimer& Wohin, const std::string& Pfad) {
    constexpr int Versuche = 10000;
    const std::string Inhalt = Angaben(Wohin, Pfad);
    Dateifehler Fehler;
    for (int Nummer = 1; Nummer <= Versuche; ++Nummer) {
        const std::string Name = NameImEimer(DateinameVon(Pfad), Nummer);
        Fehler = Belegt(Wohin, Name) ? Systemfehler(EEXIST) : AngabenSchreiben(Wohin, Inhalt, Name);
        if (!Fehler) {
            Fehler = DateiUmbenennen(Pfad, OrtDerDatei(Wohin, Name), Vorhandenes::Lassen);
            if (!Fehler) return {};
            DateiLöschen(OrtDerAngaben(Wohin, Name));
        }
        if (Fehler.Nummer != EEXIST) return Fehler;
    }
    return Fehler;
}

}  // namespace

Dateifehler Desktoppapierkorb::Verschieben(std::string_view Pfad) {
    const auto Name = Systempfad(Pfad);
    if (!Name || !IstPosixPfad(*Name) || !DateiExistiert(Pfad))
        return {ENOENT, "Die Datei ist nicht vorhanden"};
    // Above a folder that a link leads to lie other folders than above the file.
    const std::string Echt = PfadVerbinden(LinksFolgen(OrdnerVon(*Name)), Name->substr(Name->rfind('/') + 1));
    const auto Wohin = EimerWählen(Echt);
    if (!Wohin) return {EIO, "Auf diesem Laufwerk kann kein Papierkorb angelegt werden"};
    for (const char* Teil : {"info", "files"}) {
        if (!EigenerOrdner(PfadVerbinden(Wohin->Ordner, Teil)))
            return {EIO, "Der Papierkorb '" + Wohin->Ordner + "' kann nicht benutzt werden"};
    }
    return Ablegen(*Wohin, Echt);
}

}  // namespace liedwerk
