#include "haerte/namen/namen.h"

namespace liedwerk::haerte {

const std::vector<BöserName>& BöseNamen() {
    static const std::vector<BöserName> Alle = {
        {"Strich", "-rf"},
        {"Schalter", "--help"},
        {"Antwortdatei", "@datei"},
        {"einfaches Anführungszeichen", "it's; touch gehackt;'"},
        {"doppelte Anführungszeichen", "\"doppelt\" \"\"\""},
        {"typographische Zeichen", "„a“ ‚b‘ «c» ´d´"},
        {"Befehl in Klammern", "$(touch gehackt)"},
        {"Befehl in Gravis", "`touch gehackt`"},
        {"Variable", "${IFS}$HOME"},
        {"Semikolon", "a; touch gehackt"},
        {"Rohr", "a| touch gehackt"},
        {"Und", "a&& touch gehackt &"},
        {"Umlenkung", "> gehackt"},
        {"LF", "a\nb"},
        {"CR", "a\rb"},
        {"CR LF und Datensatz", "a\r\n#TAG:1|x"},
        {"Tabulator", "a\tb"},
        {"Terminalbefehle", "\x1b[2J\x1b]0;titel\x07"},
        {"Steuerzeichen", "\x01\x02\x08\x7f"},
        {"C1-Zeichen",
         "\xC2\x9B"
         "31mrot"},
        {"Punkte", "..."},
        {"Rückstriche nach oben", "..\\..\\raus"},
        {"Heimordner", "~"},
        {"printf", "%s%n%08x%1$s"},
        {"eigene Vorlage", "%Titel%%Pfad%"},
        {"Prozentkodierung", "%2e%2e%2fraus%00"},
        {"HTML-Zeichen", "&lt;b&gt;&amp;"},
        {"Bild", "<img src=x onerror=alert(1)>"},
        {"fett und Skript", "<b>x<script>alert(1)"},
        {"Adressanfang", "file:cdda:"},
        {"Datensatz", "#TAG:1|x"},
        {"Listenkopf", "#EXTM3U"},
        {"Trenner", "a|b,c;d"},
        {"Platzhalter", "*?[a-z]{a,b}"},
        {"ungültiges UTF-8", "\xFF\xFE\x80"},
        {"halbes Ersatzpaar", "\xED\xA0\x80"},
        {"überlanger Schrägstrich", "..\xC0\xAF..\xC0\xAFraus"},
        {"NFD", "e\xCC\x81"},
        {"NFC", "\xC3\xA9"},
        {"rechts nach links", "\xE2\x80\xAEgnp.exe\xE2\x81\xA6"},
        {"ohne Breite",
         "a\xE2\x80\x8B\xEF\xBB\xBF"
         "b"},
        {"Zeilentrenner",
         "a\xE2\x80\xA8"
         "b\xC2\x85"
         "c"},
        {"250 Bytes", std::string(246, 'l')},
        {"Blank und Punkte am Ende", " hinten . "},
        {"Gerätename", "CON"},
        {"versteckt", ".versteckt"},
        {"Formel", "=cmd|' C'!A0"},
        {"Formel mit Plus", "+1+cmd|' C'!A0"},
        {"Formel mit At", "@SUM(1;2)"},
        {"Rückstrich", "\\"},
    };
    return Alle;
}

const std::vector<BöserName>& BöseWerte() {
    static const std::vector<BöserName> Alle = [] {
        std::vector<BöserName> Werte = {
            {"nach oben", "../../../raus"},
            {"zwei Punkte", ".."},
            {"ganzer Pfad", "/tmp/gehackt"},
            {"Windows-Pfad", "C:\\raus\\x"},
            {"Seitenende", "</td></tr></table><script>alert(1)</script><img src=\"file:///etc/passwd\">"},
            {"Dateiadresse", "file:///etc/passwd"},
            {"CD-Adresse", "cdda://1"},
            {"Netzadresse", "http://127.0.0.1:9/x"},
            {"NUL", std::string("a\0b", 3)},
            {"Formel wie im Lehrbuch", "=cmd|' /C'!A0"},
            {"Formel hinter Tabulator", "\t=1+1"},
            {"Formel mit Minus", "-1+cmd|' /C'!A0"},
        };
        Werte.insert(Werte.end(), BöseNamen().begin(), BöseNamen().end());
        return Werte;
    }();
    return Alle;
}

}  // namespace liedwerk::haerte
