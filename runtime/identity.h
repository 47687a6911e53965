// Which product this is: the texts that head banners, messages and environment variables.
#pragma once

#include <string>

namespace ozmo {

struct ProductIdentity {
  char versionLetter = 'V';
  int majorVersion = 10;
  int minorVersion = 0;
  char patchLetter = ' ';
  int editNumber = 1;
  std::string buildDate;  // no option reaches this or the other texts without a comment
  std::string companyWord;
  std::string moduleWord;
  std::string versionText;  // V10.0-001
  std::string productName;
  std::string productAndVersion;
  std::string filePrefix;   // of the files below the library directory
  std::string upperPrefix;  // of environment variables and, without its last character, of messages
  std::string secondName;
  std::string secondNameAndVersion;
  std::string monitorName;
  std::string siblingModuleWord;
};

ProductIdentity ProductIdentityInit();

// Letter, version numbers, patch letter (left out when blank or zero) and edit number. A letter other than
// 'V' and 'T' marks a version of its own kind, with a number after it.
std::string VersionText(char letter, int majorVersion, int minorVersion, char patchLetter, int editNumber);

}  // namespace ozmo
