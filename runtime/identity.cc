#include "runtime/identity.h"

#include <cstdio>

namespace ozmo {

std::string VersionText(char letter, int majorVersion, int minorVersion, char patchLetter, int editNumber) {
  const bool hasPatch = patchLetter != ' ' && patchLetter != '\0';
  char edit[16];
  std::snprintf(edit, sizeof edit, "-%03d", editNumber);

  std::string text(1, letter);
  text += std::to_string(majorVersion) + "." + std::to_string(minorVersion);
  if (hasPatch) text += patchLetter;
  text += edit;
  if (letter != 'V' && letter != 'T') text += " 001";
  return text;
}

ProductIdentity ProductIdentityInit() {
  ProductIdentity identity;
  identity.buildDate = "Feb 22 2012";
  identity.companyWord = "Veltrix";
  identity.moduleWord = "plan";
  identity.versionText = VersionText(identity.versionLetter, identity.majorVersion, identity.minorVersion,
                                     identity.patchLetter, identity.editNumber);
  identity.productName = "Ozmo Plan";
  identity.productAndVersion = identity.productName + " " + identity.versionText;
  identity.filePrefix = "veltrix_";
  identity.upperPrefix = "VELTRIX_";
  identity.secondName = "Ozmo Analyze and Ozmo Reduce";
  identity.secondNameAndVersion = identity.secondName + " " + identity.versionText;
  identity.monitorName = "Ozmo Monitor";
  identity.siblingModuleWord = "integrate";
  return identity;
}

}  // namespace ozmo
