// A button that shows a colour of the settings and lets the person choose another one, or the desktop's own.
#pragma once

#include <QPushButton>
#include <cstdint>
#include <functional>

namespace liedwerk {

class Farbknopf final : public QPushButton {
  public:
    explicit Farbknopf(QWidget* Eltern);
    // 0xBBGGRR, or DesktopFarbe.
    void Zeigen(std::int32_t Neue);
    std::function<void(std::int32_t)> Gewählt;  // by the person

  private:
    void FarbeWählen();
    void Setzen(std::int32_t Neue);
    std::int32_t Farbe = -1;
};

}  // namespace liedwerk
