// Showing a new page, from the view state to painted pixels, compared with a bare painter that blits the same
// 1,056 cells from prepared pictures; both through a widget's paint event, at device pixel ratio 1 and 2.

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include "big_file.h"
#include "nobody.h"
#include "table.h"
#include "viewer/forms/page_table.h"
#include "viewer/open_view_file.h"
#include "viewer/refresh.h"

namespace {

using bwp::PageTable;

constexpr std::int64_t kFileLength = 1 << 20;

// Only the grid: the rest of what a refresh shows is not measured here.
class TableDisplay : public bench::NoDisplay {
 public:
  TableDisplay(PageTable& table, QImage& target) : table_(table), target_(target) {}
  void SetRedraw(bool on) override {
    if (!on) return;
    table_.ShowPage();
    table_.viewport()->render(&target_);
  }

 private:
  PageTable& table_;
  QImage& target_;
};

QImage TargetFor(const QWidget& widget, int ratio) {
  QImage target(widget.size() * ratio, QImage::Format_ARGB32_Premultiplied);
  target.setDevicePixelRatio(ratio);
  return target;
}

void ShowPage(benchmark::State& run, bool hex) {
  static const bench::BigFile file(kFileLength, bench::FillMixed);
  bwp::ViewState state;
  state.HexMode = hex;
  PageTable table(state.tabe);
  table.show();
  bwp::OpenViewFile(state, file.Path());
  QImage target = TargetFor(*table.viewport(), static_cast<int>(run.range(0)));
  TableDisplay display(table, target);
  for ([[maybe_unused]] auto _ : run) {
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

void BarePainter(benchmark::State& run) {
  const int ratio = static_cast<int>(run.range(0));
  bwp::PageGrid grid;
  for (int position = 0; position < bwp::kPageBytes; ++position) {
    grid.WriteByte(position, static_cast<std::uint8_t>(position), true);
  }
  PageTable table(grid);
  table.show();
  BareView view(table, ratio);
  view.show();
  QImage target = TargetFor(view, ratio);
  for ([[maybe_unused]] auto _ : run) view.render(&target);
}

void HexPage(benchmark::State& run) {
  ShowPage(run, true);
}

void DecimalPage(benchmark::State& run) {
  ShowPage(run, false);
}

void Interleaved(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly();
}

BENCHMARK(BarePainter)->Apply(Interleaved);
BENCHMARK(HexPage)->Apply(Interleaved);
BENCHMARK(DecimalPage)->Apply(Interleaved);

// Adds the table's rows, from the medians.
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
      for (const std::string base : {"Hex", "Decimal"}) ReportPage(base, ratio);
    }
  }

 private:
  struct Times {
    double real, processor;
  };

  void ReportPage(const std::string& base, const std::string& ratio) {
    const Times bare = median_["BarePainter" + ratio];
    const Times page = median_[base + "Page" + ratio];
    const std::string what = base + " page, pixel ratio " + ratio;
    bench::Row("time of a " + what + " / a bare painter", bench::Number(page.real / bare.real),
               bench::Number(page.processor / bare.processor), bench::AtMost(3));
    bench::Row(what, bench::Number(page.real, " ms"), bench::Number(page.processor, " ms"), "processor 1 ms");
  }

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
