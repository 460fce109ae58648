// The acquisition screen as an instrument panel.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>

#include "app/panel.hpp"
#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/marked_edit.hpp"
#include "desktop/windows/value_widget.hpp"
#include "tests/desktop/desk.hpp"

namespace kelp {
namespace {

TEST(Panel, SaysWhereTheNextValueGoesAndWhetherItIsGood) {
  Desk desk;
  desk.OpenStation(3);
  struct Row {
    const char* step;
    const char* caption;
    const char* blank;  ///< caption of the step selector's blank
    const char* told;
    int sample, row, col, box;
  };
  const Row rows[] = {
      {"BLANK", "Load Blank", "Begin Blank", "BLANK: Begin Blank", 1, 1, -1, 0},
      {"BLANK", "Save &Blank", "End Blank", "BLANK: End Blank", 3, 3, -1, 1},
      {"STANDARD", "Load Low Standard", "Begin Blank", "STANDARD: Low Standard", 1, 1, -1, 2},
      {"STANDARD", "Save High Standard", "Begin Blank", "STANDARD: High Standard", 1, 1, -1, 4},
      {"COPROS", "Load Copro 3-1", "Begin Blank", "COPROS: Copro 3-1", 1, 1, -1, 6},
      {"COPROS", "Reading 2-5", "Begin Blank", "COPROS: Copro 2-5", 1, 1, -1, 8},
      {"SAMPLE", "Load Station Sample", "Begin Blank", "SAMPLE 2: Rb", 2, 2, 3, -1},
      {"SAMPLE", "Save Rb", "Begin Blank", "SAMPLE 2: Rb", 2, 2, 3, -1},
      {"SAMPLE", "Acidified", "Begin Blank", "SAMPLE 2: Ra", 2, 2, 4, -1},
      {"ADDED", "Save Ra", "Begin Blank", "ADDED 3: Ra", 3, 3, 4, -1},
      {"SAMPLE", "Load Sample", "Begin Blank", "SAMPLE", 4, 0, -1, -1},
      {"STANDBY", "&Start", "Begin Blank", "STANDBY", 3, 3, -1, -1},
  };
  auto* grid = static_cast<GridView*>(desk.windows.WidgetOf({"frmAcquire", "datalog"}));
  for (const Row& row : rows) {
    desk.kelp.run.StepName = row.step;
    desk.kelp.frmAcquire.Command1.Caption = row.caption;
    desk.kelp.frmAcquire.Option1[kStepBlank].Caption = row.blank;
    desk.kelp.run.SampNum = row.sample;
    const PanelState panel = PanelOf(desk.kelp);
    desk.windows.ShowChanges();
    EXPECT_EQ(panel.Step, row.told);
    EXPECT_EQ(grid->MarkedRow(), row.row) << row.told;
    EXPECT_EQ(grid->MarkedCol(), row.col) << row.told;
    for (int i = 0; i < kBoxAutoCriterion; ++i)
      EXPECT_EQ(static_cast<MarkedEdit*>(desk.windows.WidgetOf({"frmAcquire", "txtBlank", i}))->Marked(),
                i == row.box)
          << row.told << " " << i;
  }
}

TEST(Panel, SignsAppearWithTheCriteriaAndNotBefore) {
  Desk desk;
  desk.OpenStation(1);
  desk.Click("frmAcquire", "Command1");
  desk.Click("frmAcquire", "Command1");
  struct Row {
    double value;
    int count;
    bool reads, sd;
  };
  // An SD of a buffer that is not full is no SD, however small; an unsteady one does not pass.
  const Row rows[] = {
      {1.0, 9, false, false}, {1.0, 1, true, true}, {1.5, 9, true, false}, {1.5001, 1, true, true}};
  for (const Row& row : rows) {
    desk.Read(row.value, row.count);
    const PanelState panel = PanelOf(desk.kelp);
    EXPECT_EQ(panel.ReadsMet, row.reads) << row.value;
    EXPECT_EQ(panel.SdMet, row.sd) << row.value << " SD " << desk.kelp.frmAcquire.txtStats[2].Text;
  }
}

TEST(Panel, ScrollsTheCurrentSampleIntoView) {
  Desk desk;
  desk.OpenStation(100);
  auto* grid = static_cast<GridView*>(desk.windows.WidgetOf({"frmAcquire", "datalog"}));
  for (const int sample : {1, 60, 100, 2}) {
    desk.kelp.run.SampNum = sample;
    desk.windows.ShowChanges();
    const QRect row = grid->visualRect(grid->model()->index(sample - 1, kColRb));
    EXPECT_TRUE(grid->viewport()->rect().contains(row)) << sample;
    EXPECT_EQ(grid->model()->headerData(sample - 1, Qt::Vertical).toString(), u"\u25B6"_qs);
  }
}

// The grid keeps its light cells in a dark scheme, with dark text on them; a flag has a dark plate.
TEST(Panel, CellsAreReadableInEveryScheme) {
  for (const bool dark : {false, true}) {
    const QPalette before = QApplication::palette();
    if (dark) QApplication::setPalette(QPalette(QColor(0x333333), QColor(0x222222)));
    Desk desk;
    desk.OpenStation(3);
    Grid& cells = desk.kelp.frmAcquire.datalog;
    cells.Text(2, kColRb) = cells.Text(2, kColChla) = "88888";
    cells.Text(3, kColQc) = "****";
    desk.windows.ShowChanges();
    auto* grid = static_cast<GridView*>(desk.windows.WidgetOf({"frmAcquire", "datalog"}));
    const QImage picture = grid->viewport()->grab().toImage();
    const auto lightness = [&](int row, int col, bool darkest) {
      const QRect cell = grid->visualRect(grid->model()->index(row - 1, col)).adjusted(3, 3, -3, -3);
      int found = darkest ? 255 : 0;
      for (int y = cell.top(); y < cell.bottom(); ++y)
        for (int x = cell.left(); x < cell.right(); ++x) {
          const int here = qGray(picture.pixel(x, y));
          found = darkest ? std::min(found, here) : std::max(found, here);
        }
      return found;
    };
    EXPECT_EQ(lightness(2, kColRb, false), 0xFF) << dark;
    EXPECT_EQ(lightness(2, kColChla, false), 0xE0) << dark;
    EXPECT_LT(lightness(2, kColChla, true), 0x60) << dark;
    EXPECT_LT(lightness(3, kColQc, true), 0x60) << dark;
    EXPECT_GT(lightness(3, kColQc, false), 0xE8) << "light asterisks on it" << dark;
    QApplication::setPalette(before);
  }
}

QString LetteringOf(const QWidget* widget) {
  if (auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text().remove('&');
  if (auto* edit = qobject_cast<const QLineEdit*>(widget)) return edit->text();
  auto* label = qobject_cast<const QLabel*>(widget);
  return label == nullptr || label->wordWrap() ? QString() : label->text().trimmed().remove('&');
}

void ExpectTextsWhole(const QWidget& window, const std::string& where) {
  std::vector<const QWidget*> seen;
  for (const QWidget* widget : window.findChildren<const QWidget*>()) {
    const QString text = LetteringOf(widget);
    if (text.isEmpty() || !widget->isVisible()) continue;
    const QSize needed(widget->fontMetrics().horizontalAdvance(text), widget->fontMetrics().height() - 1);
    EXPECT_EQ(needed.boundedTo(widget->size()), needed) << where << text.toStdString() << " is cut off";
    const auto covers = [&](const QWidget* other) {
      return other->parentWidget() == widget->parentWidget() &&
             other->geometry().intersects(widget->geometry());
    };
    EXPECT_TRUE(std::none_of(seen.begin(), seen.end(), covers))
        << where << text.toStdString() << " is covered";
    seen.push_back(widget);
  }
}

// On the smallest screen, and with large letters.
TEST(Layout, ShowsEveryTextWhole) {
  const QFont before = QApplication::font();
  for (const double letters : {1.0, 1.5}) {
    QApplication::setFont(Scaled(before, letters));
    Desk desk;
    desk.OpenStation(12);
    desk.kelp.frmAcquire.Command1.Caption = "Reading Station Sample";
    desk.kelp.frmAcquire.txtStaInfo[kStaFiltDate].Text = "11/23/2026";
    VisitScreens(desk.kelp, [&](std::string_view name, auto& /*screen*/) {
      ShowScreen(desk.kelp, name);
      QWidget* window = desk.windows.WindowOf(std::string(name));
      window->resize(name == "frmAcquire" ? QSize(1280, 690) : window->sizeHint());
      QApplication::processEvents();
      for (const QScrollArea* scroll : window->findChildren<QScrollArea*>())
        EXPECT_TRUE(letters > 1 || scroll->viewport()->size() == scroll->size()) << name << " scrolls";
      ExpectTextsWhole(*window, std::string(name) + " at " + std::to_string(letters) + ": ");
      HideScreen(desk.kelp, name);
    });
    QApplication::setFont(before);
  }
}

TEST(StripChart, DrawsTheLastValuesInTheTraceColour) {
  Desk desk;
  desk.OpenStation(1);
  QWidget* chart = desk.windows.WidgetOf({"frmAcquire", "pctCanvas"});
  chart->setFixedSize(701, 351);
  QApplication::processEvents();
  // x and y from -0.2 to 1.2 on 701 x 351 pixels: 500 pixels to the unit across, 250 down.
  const auto at = [](double x, double y) { return QPoint(qRound((x + 0.2) * 500), qRound((1.2 - y) * 250)); };
  for (int i = 0; i < 101; ++i) desk.kelp.run.Chart.AddPoint(i < 100 ? 0.5F : 1.1F);
  struct Row {
    std::uint32_t trace;
    QRgb shown;
  };
  for (const Row& row : {Row{kTraceRed, 0xFFFF0000}, Row{kTraceGreen, 0xFF00FF00},
                         Row{kTraceBlue, 0xFF0000FF}, Row{kTraceMagenta, 0xFFFF00FF}}) {
    desk.kelp.run.TraceColor = row.trace;
    desk.windows.ShowChanges();
    const QImage picture = chart->grab().toImage();
    EXPECT_EQ(picture.pixel(at(0, 0.45)), row.shown);
    EXPECT_EQ(picture.pixel(at(0.5, 0.45)), row.shown);
    EXPECT_EQ(picture.pixel(at(0.5, 0.55)), 0xFFFFFFFF) << "white above a bar";
    EXPECT_EQ(picture.pixel(at(1, 1.08)), row.shown) << "the newest value, beyond the box";
    EXPECT_EQ(picture.pixel(at(-0.015, 1)), 0xFF000000) << "the tick of Max";
    EXPECT_EQ(picture.pixel(at(0.3, 1)), 0xFF000000) << "the box";
  }
}

}  // namespace
}  // namespace kelp
