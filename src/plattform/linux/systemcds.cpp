#include "plattform/linux/systemcds.h"

#include <discid/discid.h>
#include <memory>

#include "basis/datei.h"
#include "plattform/cdabbild.h"
#include "plattform/linux/audiocd.h"

namespace liedwerk {
namespace {

struct Disclöser {
    void operator()(DiscId* Disc) const { discid_free(Disc); }
};

constexpr std::int32_t LaufwerkNichtLesbar = 2;  // Fehlernummer

}  // namespace

CDInhalt Systemcds::InhaltLesen(std::string_view Laufwerk) const {
    std::string Name(Laufwerk);
    if (Name.size() > 1 && Name.ends_with('/')) Name.pop_back();
    if (IstCDAbbild(Name)) return CDAbbildLesen(Name);
    CDInhalt Inhalt;
    const std::unique_ptr<DiscId, Disclöser> Disc(discid_new());
    if (Disc == nullptr || discid_read_sparse(Disc.get(), Name.c_str(), 0) == 0) {
        Inhalt.Fehlernummer = LaufwerkNichtLesbar;
        Inhalt.Fehlertext = "Im Laufwerk '" + Name + "' liegt keine lesbare Audio-CD";
        const std::string Grund = Disc == nullptr ? "" : discid_get_error_msg(Disc.get());
        if (!Grund.empty()) Inhalt.Fehlertext += " (" + Grund + ")";
        return Inhalt;
    }
    // The library tells that the disc has sound, but leaves out data tracks at its end and what lies before
    // them: the disc id counts them.
    CDInhalt Ganzer = GeräteinhaltLesen(Name);
    if (!Ganzer.Spuren.empty()) return Ganzer;
    const int Letzter = discid_get_last_track_num(Disc.get());
    for (int Nummer = discid_get_first_track_num(Disc.get()); Nummer <= Letzter; ++Nummer)
        Inhalt.Spuren.push_back({discid_get_track_offset(Disc.get(), Nummer), false});
    Inhalt.LeadOut = discid_get_sectors(Disc.get());
    return Inhalt;
}

std::vector<std::string> Systemcds::Auflisten() const {
    constexpr int HöchsteLaufwerke = 10;
    std::vector<std::string> Namen;
    for (int Nummer = 0; Nummer < HöchsteLaufwerke; ++Nummer) {
        std::string Name = "/dev/sr" + std::to_string(Nummer);
        if (DateiExistiert(Name)) Namen.push_back(std::move(Name));
    }
    return Namen;
}

}  // namespace liedwerk
