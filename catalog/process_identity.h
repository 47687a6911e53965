// Where a process's share goes, worked out once for each user and command of a run.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "catalog/model.h"

namespace ozmo {

struct ProcessIdentity {
  int workloadClass = 0;
  Series* image = nullptr;  // in the image tree
  Series* user = nullptr;   // in the user tree; null where the platform keeps none
};

struct ProcessKey {
  std::string user;
  std::string command;
};

struct ProcessKeyView {
  std::string_view user;
  std::string_view command;
  ProcessKeyView(std::string_view userText, std::string_view commandText)
      : user(userText), command(commandText) {}
  ProcessKeyView(const ProcessKey& key) : user(key.user), command(key.command) {}
};

struct ProcessKeyHash {
  using is_transparent = void;
  size_t operator()(const ProcessKeyView& key) const {
    const std::hash<std::string_view> hash;
    return hash(key.user) * 31 + hash(key.command);
  }
};

struct ProcessKeyEqual {
  using is_transparent = void;
  bool operator()(const ProcessKeyView& a, const ProcessKeyView& b) const {
    return a.user == b.user && a.command == b.command;
  }
};

using ProcessIdentities = std::unordered_map<ProcessKey, ProcessIdentity, ProcessKeyHash, ProcessKeyEqual>;

}  // namespace ozmo
