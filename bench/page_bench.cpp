// Showing a new page, from the view state to painted pixels, against a bare painter that blits the same 1,056
// cells from pictures made beforehand; both through a widget's paint event, at device pixel ratio 1 and 2.

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <unistd.h>
#include <vector>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include "table.h"
#include "viewer/forms/page_table.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/open_view_file.h"
#include "viewer/refresh.h"

namespace {

using bwp::PageTable;

constexpr std::int64_t kFileLength = 1 << 20;

// A file of mixed bytes that goes away with the program.
class BenchFile {
 public:
  BenchFile() {
    const int descriptor = mkstemp(path_.data());
    std::string bytes(kFileLength, '\0');
    std::uint32_t mix = 1;
    for (char& byte : bytes) byte = static_cast<char>((mix = mix * 1664525U + 1013904223U) >> 24U);
    if (write(descriptor, bytes.data(), bytes.size()) != kFileLength) std::perror(path_.c_str());
    close(descriptor);
  }
  BenchFile(const BenchFile&) = delete;
  BenchFile& operator=(const BenchFile&) = delete;
  ~BenchFile() { unlink(path_.c_str()); }
  const std::string& Path() const { return path_; }

 private:
  std::string path_ = "/tmp/bytewarp-bench-XXXXXX";
};

// The grid alone: what else a refresh shows is not measured here.
class TableDisplay : public bwp::Display {
 public:
  TableDisplay(PageTable& table, QImage& target) : table_(table), target_(target) {}
  void SetRedraw(bool on) override {
    if (!on) return;
    table_.ShowPage();
    table_.viewport()->render(&target_);
  }
  void MoveThumb() override {}
  void ShowTitle(const std::string& /*title*/) override {}
  void ShowRuler(bool /*hex*/) override {}
  void ShowWindowTexts(const bwp::WindowTexts& /*texts*/) override {}
  void ShowChunkTexts(const bwp::ChunkTexts& /*texts*/) override {}
  void FocusGridIfEnabled() override {}
  void LetEventsRun() override {}
  void NextFrame() override {}

 private:
  PageTable& table_;
  QImage& target_;
};

QImage TargetFor(const QWidget& widget, int ratio) {
  QImage target(widget.size() * ratio, QImage::Format_ARGB32_Premultiplied);
  target.setDevicePixelRatio(ratio);
  return target;
}

void ShowPage(benchmark::State& bench, bool hex) {
  static const BenchFile file;
  bwp::ViewState state;
  state.HexMode = hex;
  PageTable table(state.tabe);
  table.show();
  bwp::OpenViewFile(state, file.Path());
  QImage target = TargetFor(*table.viewport(), static_cast<int>(bench.range(0)));
  TableDisplay display(table, target);
  for (auto _ : bench) {
    state.SWStart = (state.SWStart + 16 * 37) % (kFileLength - bwp::kPageBytes);
    bwp::Refresh(state, display);
  }
}

// Blits a picture for every cell and does nothing else.
class BareView : public QWidget {
 public:
  BareView(PageTable& table, int ratio) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    resize(table.viewport()->size());
    QImage page = TargetFor(*table.viewport(), ratio);
    table.viewport()->render(&page);
    for (int row = 0; row < bwp::kRows; ++row) {
      for (int column = 0; column < bwp::kColumns; ++column) {
        const QRect place = table.visualRect(table.model()->index(row, column)).adjusted(0, 0, 1, 1);
        const QImage picture = page.copy(QRect(place.topLeft() * ratio, place.size() * ratio));
        cells_.push_back({place.topLeft(), QPixmap::fromImage(picture)});
      }
    }
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    for (const Cell& cell : cells_) painter.drawPixmap(cell.place, cell.picture);
  }

 private:
  struct Cell {
    QPoint place;
    QPixmap picture;
  };
  std::vector<Cell> cells_;
};

void BarePainter(benchmark::State& bench) {
  const int ratio = static_cast<int>(bench.range(0));
  bwp::PageGrid grid;
  for (int position = 0; position < bwp::kPageBytes; ++position) {
    grid.WriteByte(position, static_cast<std::uint8_t>(position), true);
  }
  PageTable table(grid);
  table.show();
  BareView view(table, ratio);
  view.show();
  QImage target = TargetFor(view, ratio);
  for (auto _ : bench) view.render(&target);
}

void HexPage(benchmark::State& bench) {
  ShowPage(bench, true);
}

void DecimalPage(benchmark::State& bench) {
  ShowPage(bench, false);
}

void Interleaved(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly();
}

BENCHMARK(BarePainter)->Apply(Interleaved);
BENCHMARK(HexPage)->Apply(Interleaved);
BENCHMARK(DecimalPage)->Apply(Interleaved);

// Tells what the medians make of the limits.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.aggregate_name != "median") continue;
      const std::string name = run.run_name.function_name;
      median_[name + run.run_name.args] = {run.GetAdjustedRealTime(), run.GetAdjustedCPUTime()};
    }
  }

  void Finalize() override {
    for (const std::string ratio : {"1", "2"}) {
      const Times bare = median_["BarePainter" + ratio];
      for (const std::string base : {"Hex", "Decimal"}) {
        const Times page = median_[base + "Page" + ratio];
        const std::string what = base + " page, pixel ratio " + ratio;
        bench::Row("time of a " + what + " / a bare painter", bench::Number(page.real / bare.real),
                   bench::Number(page.processor / bare.processor), bench::AtMost(3));
        bench::Row(what, bench::Number(page.real, " ms"), bench::Number(page.processor, " ms"),
                   "processor 1 ms");
      }
    }
  }

 private:
  struct Times {
    double real, processor;
  };
  std::map<std::string, Times> median_;
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
