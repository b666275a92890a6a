// The spelling function of the tag editor, AutoTAG and renaming.
#pragma once

#include <string>
#include <string_view>

namespace liedwerk {

// Schreibweise: the text in small letters with its first character raised, and with each character raised
// that follows a bracket or one of - < > % $ & * + ~ # ", or, unless NurErster, a blank. Web addresses keep
// their "http://" and "www." in small letters.
std::string Schreibweise(std::string_view Text, bool NurErster);

}  // namespace liedwerk
