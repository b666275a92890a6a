// What the small forms have in common: a banner on top, buttons at the foot.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <string_view>

namespace liedwerk {

// The width of so many average characters in pixels, at most 60 % of the screen: large letters must not drive
// a form off it.
int Zeichenbreite(const QWidget& Teil, int Zeichen);
// The size in which a form opens, in average characters and lines of text, never more than the screen holds.
void FormgrößeSetzen(QDialog& Form, int Zeichen, int Zeilen);
// The text with line breaks at its blanks, so that no line is longer than so many characters where it has
// one.
QString Umbrochen(std::string_view Text, int Zeilenlänge);
// A column layout for a form, with margins that suit it.
QVBoxLayout* Formspalte(QDialog& Form);
// The banner: a symbol and a bold line, below it a quieter text (may be empty).
void BannerHinzufügen(QVBoxLayout& Spalte, const QIcon& Bild, const QString& Zeile, const QString& Text);
// A wrapped text of the form.
QLabel* TextHinzufügen(QVBoxLayout& Spalte, const QString& Name, const QString& Text);
// A row of buttons at the right; each ends the form with its number by done(). Gives the buttons.
struct Formknopf {
    QString Name;
    QString Text;
    int Nummer;
};
QList<QPushButton*> KnöpfeHinzufügen(QVBoxLayout& Spalte, QDialog& Form, const QList<Formknopf>& Liste);

}  // namespace liedwerk
