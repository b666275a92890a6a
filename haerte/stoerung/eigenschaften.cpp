// What a rewritten file keeps, and what strangers' files under temporary names suffer.
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "haerte/stoerung/pruefung.h"

namespace liedwerk::haerte {
namespace {

namespace fs = std::filesystem;

constexpr const char* Merkmal = "user.stoerung";
constexpr const char* Zugriffsliste = "system.posix_acl_access";
constexpr uid_t Jemand = 65534;

// A list of access rights as Linux stores it: version, then tag, rights and id of each entry; the user 12345
// may read. The mode of such a file shows the mask as the rights of the group.
std::string Liste() {
    std::string Bytes("\2\0\0\0", 4);
    const auto Zeile = [&](unsigned Wer, unsigned Rechte, unsigned Kennung) {
        for (const unsigned Wert :
             {Wer, Wer >> 8U, Rechte, 0U, Kennung, Kennung >> 8U, Kennung >> 16U, Kennung >> 24U})
            Bytes += static_cast<char>(Wert & 0xFFU);
    };
    constexpr unsigned Niemand = 0xFFFFFFFFU;
    Zeile(1, 6, Niemand);
    Zeile(2, 4, 12345);
    Zeile(4, 4, Niemand);
    Zeile(16, 4, Niemand);
    Zeile(32, 0, Niemand);
    return Bytes;
}

std::string MerkmalLesen(const std::string& Pfad, const char* Name) {
    std::string Wert(256, '\0');
    const auto Länge = ::lgetxattr(Pfad.c_str(), Name, Wert.data(), Wert.size());
    Wert.resize(static_cast<std::size_t>(std::max<ssize_t>(Länge, 0)));
    return Wert;
}

struct Eigenes {
    unsigned Rechte;
    uid_t Wer;
    gid_t Gruppe;
    std::string Wert;
    std::string Zugriff;
    bool operator==(const Eigenes&) const = default;
};

Eigenes EigenesLesen(const std::string& Pfad) {
    struct stat Stand {};
    ::lstat(Pfad.c_str(), &Stand);
    return {Stand.st_mode & 07777, Stand.st_uid, Stand.st_gid, MerkmalLesen(Pfad, Merkmal),
            MerkmalLesen(Pfad, Zugriffsliste)};
}

// As much of it as this system and this user may set.
void EigenesSetzen(const std::string& Pfad) {
    const std::string Rechte = Liste();
    ::chmod(Pfad.c_str(), 0604);
    ::lsetxattr(Pfad.c_str(), Merkmal, "wert", 4, 0);
    ::lsetxattr(Pfad.c_str(), Zugriffsliste, Rechte.data(), Rechte.size(), 0);
    // Other users' media files root alone may change.
    if (::geteuid() == 0) static_cast<void>(::lchown(Pfad.c_str(), Jemand, Jemand));
}

// Files that the run gives another content.
std::vector<std::string> Geänderte(const Welt& Vorher, const Welt& Nachher) {
    std::vector<std::string> Namen;
    for (const auto& [Name, Stand] : Vorher) {
        const auto Neu = Nachher.find(Name);
        const bool Zählt = Stand.Art == 'f' && !Name.starts_with("heim") && Name != "prog/log.txt";
        if (Zählt && Neu != Nachher.end() && Neu->second.Art == 'f' && Neu->second.Inhalt != Stand.Inhalt)
            Namen.push_back(Name);
    }
    return Namen;
}

enum class Fremdart { Leitung, Ordner, Verweis, AndererBesitzer };

void FremdesAnlegen(Fremdart Art, const std::string& Pfad, const std::string& Opfer) {
    switch (Art) {
        case Fremdart::Leitung:
            ::mkfifo(Pfad.c_str(), 0666);
            break;
        case Fremdart::Ordner:
            fs::create_directories(Pfad + "/darin");
            break;
        case Fremdart::Verweis:
            fs::create_symlink(Opfer, Pfad);
            break;
        case Fremdart::AndererBesitzer:
            std::ofstream(Pfad) << "gehört jemand anderem";
            static_cast<void>(::lchown(Pfad.c_str(), Jemand, Jemand));
            break;
    }
}

}  // namespace

void Prüfung::HinterVerweis(const std::string& Name) {
    WeltHerstellen(Wo.Welt, Vorher);
    const std::string Pfad = Wo.Welt + "/" + Name;
    const std::string Echt = Wo.Ablage + "/echt";
    fs::create_directories(Echt);
    const std::string Datei = Echt + "/" + fs::path(Name).filename().string();
    fs::rename(Pfad, Datei);
    fs::create_symlink(Datei, Pfad);
    Wohin.Eingriff();
    const auto Lauf = Laufen(Wo, Aufruf(Wo, Wer.Befehl), Grundstörung());
    if (!fs::is_symlink(Pfad)) Wohin.Bruch("die Verknüpfung ist keine mehr: " + Name);
    const Welt Dort = WeltAufnehmen(Echt);
    const std::string Soll = (Lauf.Gelungen() ? Nachher : Vorher).at(Name).Inhalt;
    if (Dort.size() != 1 || Dort.begin()->second.Inhalt != Soll)
        Wohin.Bruch("hinter der Verknüpfung: " + Name);
    fs::remove_all(Echt);
}

void Prüfung::Eigenschaften() {
    for (const std::string& Name : Geänderte(Vorher, Nachher)) {
        WeltHerstellen(Wo.Welt, Vorher);
        const std::string Pfad = Wo.Welt + "/" + Name;
        EigenesSetzen(Pfad);
        const Eigenes Alt = EigenesLesen(Pfad);
        Wohin.Eingriff();
        const auto Lauf = Laufen(Wo, Aufruf(Wo, Wer.Befehl), Grundstörung());
        if (!Lauf.Gelungen()) Wohin.Bruch("mit Eigenschaften: " + Lauf.Meldungen);
        if (!(EigenesLesen(Pfad) == Alt)) Wohin.Bruch("Eigenschaften verändert: " + Name);
        if (Vorher.at(Name).Gleiche.empty() && !Wer.MehrereNamen) HinterVerweis(Name);
    }
}

void Prüfung::Fremdes() {
    std::set<std::string> Vorläufige;
    for (const Rufzeile& Ruf : Ungestört.Rufe) {
        const std::string Name = Ruf.Pfad.substr(std::min(Ruf.Pfad.size(), Wo.Welt.size() + 1));
        if (Ruf.Name == "open-neu" && !Vorher.contains(Name) && !Nachher.contains(Name) &&
            !Name.starts_with("heim"))
            Vorläufige.insert(Name);
    }
    const std::string Opfer = Wo.Ablage + "/opfer";
    for (const std::string& Name : Vorläufige) {
        for (const Fremdart Art :
             {Fremdart::Leitung, Fremdart::Ordner, Fremdart::Verweis, Fremdart::AndererBesitzer}) {
            if (Art == Fremdart::AndererBesitzer && ::geteuid() != 0) continue;
            const std::string Pfad = Wo.Welt + "/" + Name;
            WeltHerstellen(Wo.Welt, Vorher);
            std::error_code Egal;
            fs::create_directories(fs::path(Pfad).parent_path(), Egal);
            std::ofstream(Opfer) << "unberührt";
            FremdesAnlegen(Art, Pfad, Opfer);
            const auto Alt = fs::symlink_status(Pfad).type();
            Wohin.Eingriff();
            const auto Lauf = Laufen(Wo, Aufruf(Wo, MitJa(Wer.Befehl)), Grundstörung());
            const std::string Wie =
                "Fremdes unter '" + Name + "', Art " + std::to_string(static_cast<int>(Art)) + ": ";
            if (Lauf.Hängt || Lauf.Signal != 0) Wohin.Bruch(Wie + "hängt oder stürzt ab");
            // What a save on a shared folder has left behind goes when the person says so.
            const bool Gefragt = Art == Fremdart::AndererBesitzer &&
                                 Lauf.Meldungen.find("Ladevorgang fortsetzen?\n-> Ja") != std::string::npos;
            if (fs::symlink_status(Pfad).type() != Alt && !Gefragt) Wohin.Bruch(Wie + "das Fremde ist weg");
            if (std::string Inhalt; !std::getline(std::ifstream(Opfer), Inhalt) || Inhalt != "unberührt")
                Wohin.Bruch(Wie + "das Opfer ist verändert");
            // A pipe would hold the judge up.
            fs::remove_all(Pfad);
            if (Wer.MehrereNamen) continue;
            for (const std::string& Fund : Beurteilen(Grund(), WeltAufnehmen(Wo.Welt), Lauf))
                Wohin.Bruch(Wie + Fund);
        }
    }
    fs::remove(Opfer);
}

}  // namespace liedwerk::haerte
