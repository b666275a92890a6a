// liedwerk_benchmarks: the inner pieces whose cost is paid a million times, one by one.
#include <benchmark/benchmark.h>
#include <string>
#include <string_view>
#include <vector>

#include "basis/text.h"
#include "basis/zahl.h"
#include "index/satzspeicher.h"
#include "index/satzzeile.h"
#include "index/wert.h"
#include "suche/feldwert.h"
#include "suche/suchmaschine.h"
#include "werkzeuge/wortschatz.h"
#include "werkzeuge/zufall.h"

namespace liedwerk {
namespace {

constexpr int Satzanzahl = 20000;

Datensatz SatzBilden(werkzeug::Zufall& Würfel) {
    Datensatz Satz;
    Satz.Interpret = werkzeug::KünstlerBilden(Würfel);
    Satz.Album = werkzeug::AlbumBilden(Würfel);
    Satz.Titel = werkzeug::TitelBilden(Würfel);
    Satz.Titelnummer = "7";
    Satz.Jahr = "1999";
    Satz.Größe = Würfel.Zahl(1000000, 9000000);
    Satz.Dauer = Würfel.Zahl(60, 400);
    Satz.HinzufügeDatum = "01.02.2003";
    Satz.HatId3v1 = TagVorhanden;
    Satz.HatId3v2 = TagVorhanden;
    Satz.V2Interpret = Satz.Interpret;
    Satz.V2Album = Satz.Album;
    Satz.V2Titel = Satz.Titel;
    return Satz;
}

// An index of invented records, made once for all pieces.
const Katalog& Probe() {
    static const Katalog Index = [] {
        Katalog Neu;
        werkzeug::Zufall Würfel(1);
        for (int i = 0; i < Satzanzahl; ++i) {
            const Datensatz Satz = SatzBilden(Würfel);
            SatzAnhängen(Neu, "/musik/" + werkzeug::Namensteil(Satz.Interpret) + '/' + Satz.Titel + ".mp3",
                         Satz);
        }
        return Neu;
    }();
    return Index;
}

Satznummer Reihum(Satznummer& Nummer) {
    Nummer = Nummer % Satzanzahl + 1;
    return Nummer;
}

void ZeileZerlegen(benchmark::State& Stand) {
    Satznummer Nummer = 0;
    Rohwerte Werte;
    while (Stand.KeepRunning()) {
        benchmark::DoNotOptimize(SatzzeileZerlegen(Probe().Sätze.PlatzVon(Reihum(Nummer)).Zeile, Werte));
    }
}
BENCHMARK(ZeileZerlegen);

void SatzLesen(benchmark::State& Stand) {
    Satznummer Nummer = 0;
    while (Stand.KeepRunning())
        benchmark::DoNotOptimize(Probe().Sätze.Lesen(Reihum(Nummer)));
}
BENCHMARK(SatzLesen);

void SatzSetzen(benchmark::State& Stand) {
    Satzspeicher Sätze;
    werkzeug::Zufall Würfel(2);
    const Datensatz Satz = SatzBilden(Würfel);
    const Satznummer Nummer = Sätze.Anhängen("/musik/eins.mp3", Satz);
    while (Stand.KeepRunning())
        Sätze.Setzen(Nummer, "/musik/eins.mp3", Satz);
}
BENCHMARK(SatzSetzen);

void Feldzugriff(benchmark::State& Stand, std::string_view Name) {
    const Feldwahl Feld = FeldFinden(Name);
    Satznummer Nummer = 0;
    std::string Wert;
    Feldtyp Typ{};
    while (Stand.KeepRunning()) {
        benchmark::DoNotOptimize(
            FeldWert(Probe(), Reihum(Nummer), Feld, Wertform::Anzeigen, true, Wert, Typ));
    }
}
BENCHMARK_CAPTURE(Feldzugriff, Titel, "Titel");
BENCHMARK_CAPTURE(Feldzugriff, Größe, "Größe");
BENCHMARK_CAPTURE(Feldzugriff, Standardsuche, "(Standardsuche)");

void TextFalten(benchmark::State& Stand) {
    const std::string Text =
        "Die Großen Öfen - Überfahrt im Nebel (Live) /home/anna/Musik/Folk/1999/Überfahrt.mp3";
    std::string Ziel;
    while (Stand.KeepRunning()) {
        Ziel.clear();
        FaltenAnhängen(Ziel, Text);
        benchmark::DoNotOptimize(Ziel.data());
    }
    Stand.SetBytesProcessed(static_cast<std::int64_t>(Stand.iterations() * Text.size()));
}
BENCHMARK(TextFalten);

void IndexwertHinUndHer(benchmark::State& Stand) {
    const std::string Text = "Überfahrt im Nebel";
    while (Stand.KeepRunning())
        benchmark::DoNotOptimize(IndexwertLesen(IndexwertSchreiben(Text)));
}
BENCHMARK(IndexwertHinUndHer);

void ZahlLesen(benchmark::State& Stand) {
    while (Stand.KeepRunning())
        benchmark::DoNotOptimize(GanzzahlLesen<std::int32_t>("4196597"));
}
BENCHMARK(ZahlLesen);

void Textsuche(benchmark::State& Stand) {
    Suchpuffer Puffer;
    const Feldwahl Feld = FeldFinden(Standardsuche);
    while (Stand.KeepRunning()) {
        benchmark::DoNotOptimize(Puffer.Treffer(Probe(), Feld, false, "nebel", 1, Satzanzahl));
    }
    Stand.SetItemsProcessed(Stand.iterations() * Satzanzahl);
}
BENCHMARK(Textsuche);

}  // namespace
}  // namespace liedwerk
