// The port to the store of named values: what a registry key is elsewhere.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace liedwerk {

// A stored value: a text or a number.
using Speicherwert = std::variant<std::string, std::int32_t>;

// One root of values. Reading gives nothing for a missing name. Changes become durable with Sichern.
class Wertspeicher {
  public:
    virtual ~Wertspeicher() = default;
    virtual std::optional<Speicherwert> Lesen(std::string_view Name) const = 0;
    virtual void Schreiben(std::string_view Name, const Speicherwert& Neu) = 0;
    virtual void Löschen(std::string_view Name) = 0;
    // Writes all values; the old store stays whole on failure. Empty on success, else the German reason.
    virtual std::string Sichern() = 0;
};

}  // namespace liedwerk
