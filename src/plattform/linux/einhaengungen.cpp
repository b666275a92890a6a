#include "plattform/linux/einhaengungen.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <unistd.h>

#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

struct Ort {
    std::string_view Anfang;
    int Ebenen;  // names behind it that belong to the drive
};
constexpr std::array<Ort, 3> Wechselorte = {{{"/media/", 2}, {"/run/media/", 2}, {"/mnt/", 1}}};

// File systems whose files lie on another machine. An automounter's waiting place counts as such: what it
// waits for is nearly always a server.
constexpr std::array<std::string_view, 25> Netzwerkarten = {"9p",
                                                            "afs",
                                                            "autofs",
                                                            "ceph",
                                                            "cifs",
                                                            "coda",
                                                            "davfs",
                                                            "davfs2",
                                                            "fuse.afpfs",
                                                            "fuse.ceph",
                                                            "fuse.curlftpfs",
                                                            "fuse.davfs",
                                                            "fuse.davfs2",
                                                            "fuse.gcsfuse",
                                                            "fuse.gvfsd-fuse",
                                                            "fuse.rclone",
                                                            "fuse.s3fs",
                                                            "fuse.smbnetfs",
                                                            "fuse.sshfs",
                                                            "ncpfs",
                                                            "nfs",
                                                            "nfs4",
                                                            "smb3",
                                                            "smbfs",
                                                            "sshfs"};

bool IstNetzwerk(std::string_view Art) {
    return std::find(Netzwerkarten.begin(), Netzwerkarten.end(), Art) != Netzwerkarten.end();
}

// The six fields in front of a lone "-" may be more; behind it stand type and source.
std::optional<Einhängung> ZeileLesen(std::string_view Zeile) {
    const auto Felder = Teilen(Zeile, " ");
    const auto Strich = std::find(Felder.begin(), Felder.end(), "-");
    if (Strich - Felder.begin() < 6 || Felder.end() - Strich < 3) return std::nullopt;
    Einhängung Neu;
    Neu.Gerät = Felder[2];
    Neu.Ort = MitTrenner(ZahlenfolgenAuflösen(Felder[4]));
    Neu.Art = *(Strich + 1);
    Neu.Quelle = ZahlenfolgenAuflösen(*(Strich + 2));
    if (!IstPosixPfad(Neu.Ort)) return std::nullopt;
    return Neu;
}

void LängereZuerst(std::vector<Einhängung>& Tabelle) {
    std::stable_sort(Tabelle.begin(), Tabelle.end(),
                     [](const auto& A, const auto& B) { return A.Ort.size() > B.Ort.size(); });
}

// The number of Länge digits at the start of Text; nothing when they are not all digits of the base.
std::optional<char> Zahlenfolge(std::string_view Text, std::size_t Länge, int Basis) {
    if (Text.size() < Länge) return std::nullopt;
    unsigned Code = 0;
    const auto [Bis, Fehler] = std::from_chars(Text.data(), Text.data() + Länge, Code, Basis);
    if (Fehler != std::errc() || Bis != Text.data() + Länge || Code > 255) return std::nullopt;
    return static_cast<char>(Code);
}

// Length of the first Anzahl names of a path behind Anfang, separators between them included; 0 when there
// are fewer.
std::size_t LängeDerNamen(std::string_view Pfad, std::size_t Anfang, int Anzahl) {
    std::size_t Ende = Anfang;
    for (int Nummer = 0; Nummer < Anzahl; ++Nummer) {
        const std::size_t Beginn = Nummer == 0 ? Ende : Ende + 1;
        if (Beginn >= Pfad.size() || Pfad[Beginn] == '/') return 0;
        Ende = std::min(Pfad.find('/', Beginn), Pfad.size());
    }
    return Ende;
}

}  // namespace

std::string ZahlenfolgenAuflösen(std::string_view Name) {
    std::string Text;
    for (std::size_t Stelle = 0; Stelle < Name.size();) {
        const auto Rest = Name.substr(Stelle + 1);
        const bool Hex = Rest.starts_with('x');
        const auto Byte = Name[Stelle] != '\\' ? std::nullopt
                          : Hex                ? Zahlenfolge(Rest.substr(1), 2, 16)
                                               : Zahlenfolge(Rest, 3, 8);
        Text += Byte.value_or(Name[Stelle]);
        Stelle += Byte ? 4 : 1;
    }
    return Text;
}

std::vector<Einhängung> EinhängungenLesen(std::string_view Text) {
    std::vector<Einhängung> Tabelle;
    for (const auto& Zeile : Teilen(Text, "\n")) {
        auto Neu = ZeileLesen(Zeile);
        if (!Neu) continue;
        std::erase_if(Tabelle, [&](const Einhängung& Alt) { return Alt.Ort == Neu->Ort; });
        Tabelle.push_back(std::move(*Neu));
    }
    LängereZuerst(Tabelle);
    return Tabelle;
}

std::vector<Einhängung> VorgeseheneLesen(std::string_view Text) {
    std::vector<Einhängung> Tabelle;
    for (const auto& Zeile : Teilen(Ersetzen(Text, "\t", " "), "\n")) {
        auto Felder = Teilen(Kürzen(Zeile), " ");
        std::erase(Felder, "");
        if (Felder.size() < 3 || Felder[0].starts_with('#') || !IstPosixPfad(Felder[1])) continue;
        Einhängung Neu;
        Neu.Quelle = ZahlenfolgenAuflösen(Felder[0]);
        Neu.Ort = MitTrenner(ZahlenfolgenAuflösen(Felder[1]));
        Neu.Art = Felder[2];
        if (Neu.Ort != "/") Tabelle.push_back(std::move(Neu));
    }
    LängereZuerst(Tabelle);
    return Tabelle;
}

const Einhängung* EinhängungAn(const std::vector<Einhängung>& Tabelle, std::string_view Ort) {
    const auto Fund =
        std::find_if(Tabelle.begin(), Tabelle.end(), [&](const auto& Eintrag) { return Eintrag.Ort == Ort; });
    return Fund == Tabelle.end() ? nullptr : &*Fund;
}

std::string Wechselort(std::string_view Pfad) {
    for (const auto& [Anfang, Ebenen] : Wechselorte) {
        if (!Pfad.starts_with(Anfang)) continue;
        const std::size_t Länge = LängeDerNamen(Pfad, Anfang.size(), Ebenen);
        return Länge == 0 ? std::string() : MitTrenner(Pfad.substr(0, Länge));
    }
    return {};
}

std::string LaufwerkVon(const std::vector<Einhängung>& Tabelle, std::string_view Pfad) {
    const std::string AlsOrdner = MitTrenner(Pfad);
    std::string Laufwerk = "/";
    for (const auto& Eintrag : Tabelle) {
        if (!AlsOrdner.starts_with(Eintrag.Ort)) continue;
        Laufwerk = Eintrag.Ort;
        break;
    }
    std::string Ort = Wechselort(Pfad);
    if (Ort.size() <= Laufwerk.size()) return Laufwerk;
    // A medium mounted at /media/cdrom holds its own folders; they are no drives.
    const bool ImWechselbereich = Laufwerk.starts_with("/media/") || Laufwerk.starts_with("/run/media/");
    const auto* Eingehängt = EinhängungAn(Tabelle, Laufwerk);
    if (ImWechselbereich && Eingehängt != nullptr && Eingehängt->Quelle.starts_with('/')) return Laufwerk;
    return Ort;
}

Laufwerksart ArtVon(const Einhängung& Eingehängt) {
    if (IstNetzwerk(Eingehängt.Art)) return Laufwerksart::Netzwerk;
    const bool Scheibe = Eingehängt.Art == "iso9660" || Eingehängt.Art == "udf";
    if (Scheibe && Eingehängt.Quelle.starts_with("/dev/sr")) return Laufwerksart::CdRom;
    if (Wechselort(Eingehängt.Ort) == Eingehängt.Ort) return Laufwerksart::Wechsel;
    if (Eingehängt.Quelle.starts_with("/dev/ram")) return Laufwerksart::Speicher;
    return Laufwerksart::Fest;
}

std::string LinksFolgen(std::string_view Pfad) {
    constexpr int HöchsteTiefe = 40;  // the system's own bound
    std::string Rest(Pfad);
    std::string Fertig;
    for (int Tiefe = 0; !Rest.empty();) {
        const std::size_t Anfang = Rest.find_first_not_of('/');
        if (Anfang == std::string::npos) break;
        const std::size_t Ende = std::min(Rest.find('/', Anfang), Rest.size());
        const std::string Name = Rest.substr(Anfang, Ende - Anfang);
        Rest.erase(0, Ende);
        if (Name == ".") continue;
        if (Name == "..") {
            Fertig.resize(Fertig.empty() ? 0 : Fertig.rfind('/'));
            continue;
        }
        std::array<char, 4096> Verweis;
        std::string Hier = Fertig;
        Hier.append("/").append(Name);
        const auto Länge = ::readlink(Hier.c_str(), Verweis.data(), Verweis.size());
        if (Länge <= 0) {
            Fertig = Hier;
            continue;
        }
        if (++Tiefe > HöchsteTiefe) return std::string(Pfad);
        const std::string Ziel(Verweis.data(), static_cast<std::size_t>(Länge));
        if (IstPosixPfad(Ziel)) Fertig.clear();
        Rest.insert(0, "/" + Ziel);
    }
    return Fertig.empty() ? std::string("/") : Fertig;
}

}  // namespace liedwerk
