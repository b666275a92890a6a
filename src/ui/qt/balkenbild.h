// A picture of named values as horizontal bars, drawn in the palette's colours. It is as high as its bars
// need; a scroll area around it shows the rest.
#pragma once

#include <QString>
#include <QWidget>
#include <cstdint>
#include <vector>

namespace liedwerk {

struct Balken {
    QString Name;
    std::int64_t Wert = 0;
    QString Text;        // the value as a person reads it
    bool Blass = false;  // a collective or empty group
};

class Balkenbild final : public QWidget {
  public:
    explicit Balkenbild(QWidget* Eltern);
    void Zeigen(std::vector<Balken> Neue);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* Ereignis) override;
    bool event(QEvent* Ereignis) override;

  private:
    int Zeilenhöhe() const;
    std::vector<Balken> Liste;
    std::int64_t Größter = 0;
    int Namensbreite = 0;
    int Textbreite = 0;
};

}  // namespace liedwerk
