#include "output/portable_map.h"

#include "runtime/text.h"

namespace ozmo {
namespace {

constexpr uint32_t SAMPLE_MAX = 255;
constexpr uint32_t TWO_BYTE_SAMPLE_MAX = 65535;
constexpr uint32_t NUMBER_MAX = 100000000;  // digits after such a number are dropped: no map is as large

struct MapForm {
  int letter;
  int components;
  bool raw;
};

constexpr MapForm MAP_FORMS[] = {{'2', 1, false}, {'3', 3, false}, {'5', 1, true}, {'6', 3, true}};

bool IsBlank(int character) {
  return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

// The next character; a comment counts as the line end that closes it.
int NextCharacter(std::FILE* input) {
  int character = std::getc(input);
  if (character == '#') {
    do {
      character = std::getc(input);
    } while (character != '\n' && character != EOF);
  }
  return character;
}

// Takes the one character after the number with it.
MapStatus ReadNumber(std::FILE* input, uint32_t& number) {
  int character = NextCharacter(input);
  while (IsBlank(character)) character = NextCharacter(input);
  if (character == EOF) return MapStatus::END_OF_INPUT;
  if (!IsDigit(character)) return MapStatus::NONNUMERIC;
  number = 0;
  for (; IsDigit(character); character = NextCharacter(input)) {
    if (number < NUMBER_MAX) number = number * 10 + static_cast<uint32_t>(character - '0');
  }
  return MapStatus::OK;
}

MapStatus ReadForm(PortableMap& map) {
  if (std::getc(map.input) != 'P') return MapStatus::NOT_A_MAP;
  const int letter = std::getc(map.input);
  for (const MapForm& form : MAP_FORMS) {
    if (form.letter == letter) {
      map.components = form.components;
      map.raw = form.raw;
      return MapStatus::OK;
    }
  }
  return MapStatus::NOT_A_MAP;
}

MapStatus ScaleSample(const PortableMap& map, uint32_t value, uint8_t& sample) {
  if (value > map.maximum) return MapStatus::NOT_A_MAP;
  sample = map.scale[value];
  return MapStatus::OK;
}

MapStatus ReadTextRow(PortableMap& map, std::vector<uint8_t>& row) {
  for (uint8_t& sample : row) {
    uint32_t value = 0;
    MapStatus status = ReadNumber(map.input, value);
    if (status == MapStatus::OK) status = ScaleSample(map, value, sample);
    if (status != MapStatus::OK) return status;
  }
  return MapStatus::OK;
}

bool ReadBytes(std::FILE* input, std::vector<uint8_t>& bytes) {
  return std::fread(bytes.data(), 1, bytes.size(), input) == bytes.size();
}

MapStatus ReadRawRow(PortableMap& map, std::vector<uint8_t>& row) {
  if (!ReadBytes(map.input, row)) return MapStatus::END_OF_INPUT;
  if (map.maximum == SAMPLE_MAX) return MapStatus::OK;
  for (uint8_t& sample : row) {
    const MapStatus status = ScaleSample(map, sample, sample);
    if (status != MapStatus::OK) return status;
  }
  return MapStatus::OK;
}

MapStatus ReadWideRow(PortableMap& map, std::vector<uint8_t>& row) {
  map.bytes.resize(row.size() * 2);
  if (!ReadBytes(map.input, map.bytes)) return MapStatus::END_OF_INPUT;
  for (size_t n = 0; n < row.size(); ++n) {
    const uint32_t value = map.bytes[2 * n] + (uint32_t{map.bytes[2 * n + 1]} << 8);
    const MapStatus status = ScaleSample(map, value, row[n]);
    if (status != MapStatus::OK) return status;
  }
  return MapStatus::OK;
}

void FillScale(PortableMap& map) {
  map.scale.resize(map.maximum + 1);
  for (uint32_t value = 0; value <= map.maximum; ++value) {
    map.scale[value] = static_cast<uint8_t>((value * SAMPLE_MAX + map.maximum / 2) / map.maximum);
  }
}

}  // namespace

MapStatus MapReadHeader(PortableMap& map, std::FILE* input) {
  map.input = input;
  const MapStatus form = ReadForm(map);
  if (form != MapStatus::OK) return form;
  for (uint32_t* number : {&map.width, &map.height, &map.maximum}) {
    const MapStatus status = ReadNumber(input, *number);
    if (status != MapStatus::OK) return status;
  }
  if (map.width == 0 || map.height == 0 || map.maximum == 0 || map.maximum > TWO_BYTE_SAMPLE_MAX) {
    return MapStatus::NOT_A_MAP;
  }
  FillScale(map);
  return MapStatus::OK;
}

MapStatus MapReadRow(PortableMap& map, std::vector<uint8_t>& row) {
  if (!map.raw) return ReadTextRow(map, row);
  return map.maximum > SAMPLE_MAX ? ReadWideRow(map, row) : ReadRawRow(map, row);
}

}  // namespace ozmo
