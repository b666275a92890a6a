// Documents that are made from the command table, so that they cannot fall behind it.
#pragma once

#include <string>
#include <string_view>

namespace liedwerk {

// The sections of the manual page (man(7)): the global options; the commands.
std::string HandbuchseiteOptionen();
std::string HandbuchseiteBefehle();

// Functions for bash and zsh: the commands with a line of explanation, the options of a command, and what may
// stand behind an option or as argument.
std::string Schalendaten();

// Lines "complete ..." for fish.
std::string Fischdaten();

// Puts these texts into a template in place of @OPTIONEN@, @BEFEHLE@, @SCHALENDATEN@, @FISCHDATEN@ and
// @VERSION@.
std::string VorlageFüllen(std::string Vorlage);

}  // namespace liedwerk
