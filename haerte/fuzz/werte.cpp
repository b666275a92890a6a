// The small readers that all others stand on: text, code page, numbers, dates, values of the index.
#include <algorithm>
#include <limits>

#include "basis/ansi.h"
#include "basis/dateiname.h"
#include "basis/datum.h"
#include "basis/jsontext.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "fuzz/ziel.h"
#include "index/wert.h"
#include "plattform/linux/einhaengungen.h"
#include "suche/spaltenlayout.h"

namespace liedwerk::fuzz {

void WertePrüfen(std::string_view Eingabe) {
    Gleich("Ein Wert kommt aus dem Text wieder", Eingabe, IndexwertSchreiben(IndexwertLesen(Eingabe)));
    Gleich("Ein Text kommt aus dem Wert wieder", Eingabe, IndexwertLesen(IndexwertSchreiben(Eingabe)));
    Gleich("Jedes Byte der Codeseite kommt wieder", Eingabe, *Utf8NachAnsi(AnsiNachUtf8(Eingabe)));
    Fordern(IstUtf8(JsonText(Eingabe)), "JSON ist gültiges UTF-8");
    // Less room than the mark of raw bytes and a character is never asked for.
    const std::size_t Höchstens = std::max<std::size_t>(8, Eingabe.size() / 2);
    const std::string Gekürzt = IndexwertEinpassen(Eingabe, Höchstens);
    Fordern(Gekürzt.size() <= Höchstens, "Ein eingepasster Wert passt");

    std::string Zeichenweise;
    for (std::size_t Stelle = 0; Stelle < Eingabe.size();)
        ZeichenAnhängen(Zeichenweise, ZeichenLesen(Eingabe, Stelle));
    Gleich("Jedes Zeichen kommt wieder", Eingabe, Zeichenweise);
    Gleich("Falten faltet ganz", Falten(Eingabe), Falten(Falten(Eingabe)));
    // The i with and without dot of Turkish have i and I for partners, yet fold to themselves.
    if (Eingabe.find("\xC4\xB0") == Eingabe.npos && Eingabe.find("\xC4\xB1") == Eingabe.npos)
        Fordern(GleichOhneGroß(Eingabe, Kleinbuchstaben(Eingabe)) &&
                    GleichOhneGroß(Eingabe, Großbuchstaben(Eingabe)),
                "Groß und klein sind gleich");
    if (const auto Trenner = Eingabe.substr(0, 1); !Trenner.empty())
        Gleich("Geteilt und verbunden ist ganz", Eingabe, Verbinden(Teilen(Eingabe, Trenner), Trenner));

    if (const auto Datum = DatumLesen(Eingabe)) {
        Fordern(DatumLesen(DatumZeitText(*Datum)) == Datum, "Ein Datum kommt wieder");
        Fordern(AusKalendersekunden(Kalendersekunden(*Datum)) == *Datum,
                "Die Sekunden des Kalenders stimmen");
    }
    if (const auto Ganz = GanzzahlLesen<std::int64_t>(Eingabe)) {
        Gruppiert(*Ganz);
        Fordern(IstNumerisch(Eingabe), "Eine ganze Zahl ist eine Zahl");
    }
    Fordern(
        IstUnfertigeKopie(std::string(Eingabe) + "~" + KennzahlText(Eingabe) + std::string(KopieEndung)) &&
            (!IstUnfertigeKopie(Eingabe) || Eingabe.find('~') != Eingabe.npos),
        "Der Name einer unfertigen Kopie wird erkannt");
    EinhängungenLesen(Eingabe);
    VorgeseheneLesen(Eingabe);
    const std::string Layout = SpaltenSpeichern(SpaltenEinrichten(Eingabe), Eingabe);
    Gleich("Ein Spaltenlayout kommt wieder", Layout, SpaltenSpeichern(SpaltenEinrichten(Layout), Layout));
}

}  // namespace liedwerk::fuzz
