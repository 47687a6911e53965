#include "output/export_csv.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>

#include "output/output_file.h"
#include "runtime/messages.h"
#include "runtime/times.h"

namespace ozmo {
namespace {

std::string PeriodEnd(Seconds time) { return TimeFormat(time, "%a %b %d %H:%M %Z %Y"); }

void WriteHead(std::FILE* stream, const GraphJob& job) {
  // The version belongs to the form of the file and does not follow that of the product.
  std::fprintf(stream, "Veltrix Export Graph V9.2\n");
  std::fprintf(stream, "Time Period: From %s To %s\n", PeriodEnd(job.startTime).c_str(),
               PeriodEnd(job.endTime).c_str());
  std::fprintf(stream, "Host Name: %s,\n", job.hostName.c_str());
  std::fprintf(stream, "Main Overlay: %s\n", job.mainOverlay.title.c_str());
  std::fprintf(stream, "Additional Overlay: %s\n",
               job.additionalOverlay ? job.additionalOverlay->title.c_str() : "(null)");
}

// A column always has a head: "(null)" means a trace without a label.
void WriteColumnHead(std::FILE* stream, const OverlayTrace& trace) {
  std::fprintf(stream, ",  %s", trace.label ? trace.label->c_str() : "(null)");
}

void WriteColumnHeads(std::FILE* stream, const GraphJob& job) {
  std::fprintf(stream, "Time");
  for (const OverlayTrace& trace : job.mainOverlay.traces) WriteColumnHead(stream, trace);
  if (job.additionalOverlay) WriteColumnHead(stream, job.additionalOverlay->traces.front());
  std::fprintf(stream, "\n");
}

// As printf's "%6.2f" writes it, and faster: a table is mostly values.
void WriteValue(std::FILE* stream, float value) {
  constexpr std::string_view SEPARATOR = ",  ";
  constexpr size_t WIDTH = 6;
  std::array<char, 64> digits;
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<double>(value),
                                    std::chars_format::fixed, 2);
  const std::string_view number(digits.data(), static_cast<size_t>(result.ptr - digits.data()));
  std::string text(SEPARATOR);
  if (number.size() < WIDTH) text.append(WIDTH - number.size(), ' ');
  text += number;
  std::fwrite(text.data(), 1, text.size(), stream);
}

void WritePoint(std::FILE* stream, const GraphJob& job, int number) {
  const auto point = static_cast<size_t>(number);
  std::fprintf(stream, "%s", TimeFormat(job.TimeOfPoint(number), "%m/%d/%Y %H:%M:%S").c_str());
  for (size_t set = 0; set < job.mainOverlay.traces.size(); ++set) {
    WriteValue(stream, OwnValue(job.mainOverlay, set, point));
  }
  if (job.additionalOverlay) WriteValue(stream, job.additionalOverlay->traces.front().series[point]);
  std::fprintf(stream, "\n");
}

}  // namespace

void WriteCsv(std::FILE* stream, const GraphJob& job) {
  WriteHead(stream, job);
  WriteColumnHeads(stream, job);
  for (int point = 0; point < job.pointCount; ++point) WritePoint(stream, job, point);
}

int ExportCsv(const GraphJob& job, Runtime& runtime) {
  DraftFile draft;
  const Stream stream = OutputFileOpen(job, draft);
  if (!stream) {
    MessageEmit(runtime, PLAIN_MESSAGE, {"Could not open graph file."});
    return 0;
  }
  WriteCsv(stream.get(), job);
  draft.Finish();
  return 1;
}

}  // namespace ozmo
