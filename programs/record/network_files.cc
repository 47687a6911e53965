#include "programs/record/network_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <string_view>

namespace ozmo::record {
namespace {

// The figures that every kernel has, in the order of the oldest.
constexpr std::string_view PROTOCOL_NAMES[] = {
    "Ip: Forwarding DefaultTTL InReceives InHdrErrors InAddrErrors ForwDatagrams InUnknownProtos InDiscards "
    "InDelivers OutRequests OutDiscards OutNoRoutes ReasmTimeout ReasmReqds ReasmOKs ReasmFails FragOKs "
    "FragFails FragCreates",
    "Icmp: InMsgs InErrors InDestUnreachs InTimeExcds InParmProbs InSrcQuenchs InRedirects InEchos "
    "InEchoReps InTimestamps InTimestampReps InAddrMasks InAddrMaskReps OutMsgs OutErrors OutDestUnreachs "
    "OutTimeExcds OutParmProbs OutSrcQuenchs OutRedirects OutEchos OutEchoReps OutTimestamps "
    "OutTimestampReps OutAddrMasks OutAddrMaskReps",
    "Tcp: RtoAlgorithm RtoMin RtoMax MaxConn ActiveOpens PassiveOpens AttemptFails EstabResets CurrEstab "
    "InSegs OutSegs RetransSegs",
    "Udp: InDatagrams NoPorts InErrors OutDatagrams",
};

// The columns of an adapter: received and sent have columns of the same names.
struct AdapterColumn {
  bool sent;
  std::string_view name;
};
constexpr AdapterColumn ADAPTER_COLUMNS[] = {{false, "packets"}, {false, "bytes"}, {false, "errs"},
                                             {true, "packets"},  {true, "bytes"},  {true, "errs"},
                                             {true, "colls"}};

// Takes the first of the parts that `separators` part off the text; empty when there is none left.
std::string_view TakePart(std::string_view& text, const char* separators) {
  text.remove_prefix(std::min(text.find_first_not_of(separators), text.size()));
  const std::string_view part = text.substr(0, text.find_first_of(separators));
  text.remove_prefix(part.size());
  return part;
}

std::string_view TakeLine(std::string_view& text) { return TakePart(text, "\n"); }
std::string_view TakeWord(std::string_view& text) { return TakePart(text, " \t"); }

std::vector<std::string_view> WordsOf(std::string_view line) {
  std::vector<std::string_view> words;
  while (true) {
    const std::string_view word = TakeWord(line);
    if (word.empty()) return words;
    words.push_back(word);
  }
}

// What isn't a number, or is below 0, counts as 0: "no limit" is -1 there.
uint64_t NumberOf(std::string_view word) {
  uint64_t number = 0;
  std::from_chars(word.data(), word.data() + word.size(), number);
  return number;
}

// The number in the column of that name; 0 when there is no such column.
uint64_t NumberUnder(std::string_view name, const std::vector<std::string_view>& names,
                     const std::vector<std::string_view>& values) {
  const auto column = static_cast<size_t>(std::find(names.begin(), names.end(), name) - names.begin());
  return column < names.size() && column < values.size() ? NumberOf(values[column]) : 0;
}

bool ReadText(const char* path, const char* what, std::string& text, Notices& notices) {
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  ssize_t count = file < 0 ? -1 : 1;
  while (count > 0) {
    char buffer[16384];
    count = read(file, buffer, sizeof buffer);
    if (count > 0) text.append(buffer, static_cast<size_t>(count));
  }
  if (count < 0) {
    notices.SayOnce(std::string(path) + ": " + std::strerror(errno) + "; no " + what + " are recorded");
  }
  if (file >= 0) close(file);
  return count == 0;
}

// Takes the figures of one protocol into `figures`, which has room for as many as `wanted` names.
void TakeProtocol(std::string_view text, const std::vector<std::string_view>& wanted, uint64_t* figures) {
  while (!text.empty()) {
    const std::vector<std::string_view> names = WordsOf(TakeLine(text));
    if (names.empty() || names[0] != wanted[0]) continue;
    const std::vector<std::string_view> values = WordsOf(TakeLine(text));
    for (size_t i = 1; i < wanted.size(); ++i) figures[i - 1] = NumberUnder(wanted[i], names, values);
    return;
  }
}

}  // namespace

bool ReadProtocols(host_file::ProtocolFigures& protocols, Notices& notices) {
  std::string text;
  if (!ReadText("/proc/net/snmp", "protocols", text, notices)) return false;
  size_t place = 0;
  for (const std::string_view names : PROTOCOL_NAMES) {
    const std::vector<std::string_view> wanted = WordsOf(names);
    TakeProtocol(text, wanted, &protocols[place]);
    place += wanted.size() - 1;
  }
  return true;
}

std::vector<host_file::AdapterFigures> ReadAdapters(Notices& notices) {
  std::vector<host_file::AdapterFigures> adapters;
  std::string text;
  if (!ReadText("/proc/net/dev", "adapters", text, notices)) return adapters;
  std::string_view rest = text;
  TakeLine(rest);
  // "face | names of what is received | names of what is sent"
  std::string_view head = TakeLine(rest);
  TakePart(head, "|");
  const std::vector<std::string_view> received = WordsOf(TakePart(head, "|"));
  const std::vector<std::string_view> sent = WordsOf(TakePart(head, "|"));
  while (!rest.empty()) {
    std::string_view line = TakeLine(rest);
    const size_t colon = line.rfind(':');  // an alias has one in its name
    if (colon == line.npos) continue;
    std::string_view name = line.substr(0, colon);
    std::vector<std::string_view> values = WordsOf(line.substr(colon + 1));
    if (values.size() < received.size()) continue;
    const std::vector<std::string_view> sentValues(
        values.begin() + static_cast<std::ptrdiff_t>(received.size()), values.end());
    host_file::AdapterFigures adapter{std::string(TakeWord(name)), {}};
    for (size_t i = 0; i < adapter.figures.size(); ++i) {
      const AdapterColumn& column = ADAPTER_COLUMNS[i];
      adapter.figures[i] = column.sent ? NumberUnder(column.name, sent, sentValues)
                                       : NumberUnder(column.name, received, values);
    }
    const bool silent =
        std::all_of(adapter.figures.begin(), adapter.figures.end(), [](uint64_t n) { return n == 0; });
    if (!silent) adapters.push_back(std::move(adapter));
  }
  return adapters;
}

}  // namespace ozmo::record
