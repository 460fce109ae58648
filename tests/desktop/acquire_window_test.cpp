// SPDX-License-Identifier: GPL-3.0-or-later
// The acquisition screen as an instrument panel.

#include <QAbstractButton>
#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <algorithm>

#include "desktop/windows/focus_style.hpp"
#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/marked_edit.hpp"
#include "desktop/windows/wrap_text.hpp"
#include "tests/desktop/desk.hpp"
#include "tests/desktop/modal.hpp"

namespace kelp {
namespace {

GridView* CellsOf(Desk& desk) {
  return static_cast<GridView*>(desk.windows.WidgetOf({"frmAcquire", "datalog"}));
}

TEST(Panel, MarksWhereTheNextValueGoes) {
  Desk desk;
  desk.OpenStation(100);
  struct Row {
    const char *step, *caption;
    int sample, row, col, box;
  };
  const Row rows[] = {
      {"BLANK", "Load Blank", 1, 1, -1, 0},   {"BLANK", "Save &Blank", 100, 100, -1, 1},
      {"COPROS", "Reading 2-5", 1, 1, -1, 8}, {"SAMPLE", "Load Station Sample", 60, 60, 3, -1},
      {"ADDED", "Save Ra", 3, 3, 4, -1},      {"SAMPLE", "Load Sample", 101, 0, -1, -1}};
  auto* grid = CellsOf(desk);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.caption);
    desk.run().StepName = row.step;
    desk.caption() = row.caption;
    desk.form().Option1[kStepBlank].Caption = row.box == kBoxEndBlank ? "End Blank" : "Begin Blank";
    desk.run().SampNum = row.sample;
    desk.windows.ShowChanges();
    EXPECT_EQ(grid->MarkedRow(), row.row);
    EXPECT_EQ(grid->MarkedCol(), row.col);
    for (int i = 0; i < kBoxAutoCriterion; ++i) {
      auto* box = static_cast<MarkedEdit*>(desk.windows.WidgetOf({"frmAcquire", "txtBlank", i}));
      EXPECT_EQ(box->Marked(), i == row.box) << i;
    }
    const QRect cell = grid->visualRect(grid->model()->index(row.row - 1, kColRb));
    EXPECT_TRUE(row.row == 0 || grid->viewport()->rect().contains(cell)) << "out of view";
  }
}

// In both schemes the reading columns are lighter than the rest, and the text stands out.
TEST(Cells, AreReadableInEveryScheme) {
  for (const bool dark : {false, true}) {
    ApplyScheme(dark ? SchemeChoice::Dark : SchemeChoice::Light);
    Desk desk;
    desk.OpenStation(3);
    desk.cell(2, kColChla) = "88888";
    desk.windows.ShowChanges();
    auto* grid = CellsOf(desk);
    const auto pictureOf = [&](int col) {
      const QRect cell = grid->visualRect(grid->model()->index(1, col)).adjusted(3, 3, -3, -3);
      return grid->viewport()->grab(cell).toImage().convertToFormat(QImage::Format_RGB32);
    };
    const QImage picture = pictureOf(kColChla);
    const auto* pixels = reinterpret_cast<const QRgb*>(picture.constBits());
    const auto [darkest, lightest] = std::minmax_element(pixels, pixels + picture.width() * picture.height(),
                                                         [](QRgb a, QRgb b) { return qGray(a) < qGray(b); });
    EXPECT_EQ((dark ? *darkest : *lightest) & 0xFFFFFF, SchemeOf(dark).Cell);
    EXPECT_GE(Contrast(*darkest & 0xFFFFFF, *lightest & 0xFFFFFF), 4.5) << dark;
    EXPECT_EQ(pictureOf(kColRb).pixel(1, 1) & 0xFFFFFF, SchemeOf(dark).ReadingCell);
    // However the focus came to a control, it shows: its picture differs from that without.
    desk.windows.WindowOf("frmAcquire")->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(desk.windows.WindowOf("frmAcquire")));
    for (const char* control : {"Command2", "Check1"}) {
      auto* widget = desk.windows.WidgetOf({"frmAcquire", control, -1});
      const QImage without = widget->grab().toImage();
      widget->setFocus(Qt::OtherFocusReason);
      EXPECT_NE(widget->grab().toImage(), without) << control;
    }
  }
  ApplyScheme(SchemeChoice::System);
}

QString LetteringOf(const QWidget* widget) {
  if (auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text().remove('&');
  if (auto* edit = qobject_cast<const QLineEdit*>(widget)) return edit->text();
  auto* label = qobject_cast<const QLabel*>(widget);
  return label == nullptr || label->wordWrap() ? QString() : label->text().trimmed().remove('&');
}

void ExpectTextsWhole(const QWidget& window) {
  std::vector<const QWidget*> seen;
  for (const QWidget* widget : window.findChildren<const QWidget*>()) {
    const QString text = widget->isVisible() ? LetteringOf(widget) : "";
    if (text.isEmpty()) continue;
    const QSize needed(widget->fontMetrics().horizontalAdvance(text), widget->fontMetrics().height() - 1);
    EXPECT_EQ(needed.boundedTo(widget->size()), needed) << text.toStdString() << " is cut off";
    for (const QWidget* other : seen)
      EXPECT_FALSE(other->parentWidget() == widget->parentWidget() &&
                   other->geometry().intersects(widget->geometry()))
          << text.toStdString() << " is covered";
    seen.push_back(widget);
  }
  for (const auto* wrapped : PartsOf<WrapText>(window)) {
    const int lines = wrapped->fontMetrics()
                          .boundingRect(0, 0, wrapped->width(), 9999, Qt::TextWordWrap, wrapped->ShownText())
                          .height();
    EXPECT_LE(lines - 1, wrapped->height()) << wrapped->ShownText().toStdString() << " is cut off";
  }
}

// On the smallest screen, and with large letters.
TEST(Layout, ShowsEveryTextWhole) {
  const QFont before = QApplication::font();
  for (const double letters : {1.0, 1.5}) {
    QApplication::setFont(Scaled(before, letters));
    Desk desk;
    desk.OpenStation(12);
    for (int i = 0; i < 2; ++i) desk.Click("frmAcquire", "Command1");
    desk.Read(1.2345, 3);
    desk.caption() = "Reading Station Sample";
    desk.form().txtStaInfo[kStaFiltDate].Text = "11/23/2026";
    VisitScreens(desk.kelp, [&](std::string_view name, auto& screen) {
      ShowScreen(desk.kelp, screen.Form);
      QWidget* window = desk.windows.WindowOf(std::string(name));
      window->resize(name == "frmAcquire" ? QSize(1024, 744) : window->sizeHint());
      QApplication::processEvents();
      SCOPED_TRACE(std::string(name) + " at " + std::to_string(letters));
      for (const QScrollArea* scroll : window->findChildren<QScrollArea*>())
        EXPECT_TRUE(letters > 1 || scroll->viewport()->size() == scroll->size()) << "it scrolls";
      const GridView* grid = CellsOf(desk);
      EXPECT_TRUE(name != "frmAcquire" || letters > 1 ||
                  grid->columnViewportPosition(kColReadCom) + grid->columnWidth(kColReadCom) <=
                      grid->viewport()->width());
      ExpectTextsWhole(*window);
      HideScreen(desk.kelp, screen.Form);
    });
    QApplication::setFont(before);
  }
}

// Where a picture is darker than its first point, and by how much in all.
std::pair<QRect, int> InkIn(const QImage& image) {
  QRect where;
  int ink = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (const int dark = qGray(image.pixel(0, 0)) - qGray(image.pixel(x, y)); dark > 40) {
        where |= QRect(x, y, 1, 1);
        ink += dark;
      }
  return {where, ink};
}

// From pictures of its digits; with a mark that nobody sees it is drawn in letters.
TEST(Reading, IsDrawnAsItsFontWouldDrawIt) {
  for (const double largest : {0.0, 2.0, 9.0})
    for (const bool faint : {false, true}) {
      ValueBox box(8, ValueBox::Frame::None, Qt::AlignRight, nullptr);
      if (largest > 0) box.FillWithText(largest);
      box.SetFaint(faint);
      box.resize(600, 120);
      const auto ink = [&](const QString& text) {
        box.ShowText(text);
        return InkIn(box.grab().toImage());
      };
      const auto [where, dark] = ink("-50.17");
      const auto [wanted, wantedDark] = ink(QString("-50.17") + QChar(0x200B));
      EXPECT_TRUE(wanted.adjusted(-1, -1, 1, 1).contains(where)) << largest;
      EXPECT_TRUE(where.adjusted(-1, -1, 1, 1).contains(wanted)) << largest;
      EXPECT_NEAR(dark, wantedDark, wantedDark / 8.0) << largest;
    }
}

// A display shows it when it likes, and other windows may cover it.
bool CanSeeTheDisplay() { return QGuiApplication::platformName() == "offscreen"; }

// What stands on the display, not what would be drawn now.
QImage OnDisplay(const QWidget& widget) {
  QApplication::processEvents();
  const QWidget* window = widget.window();
  const QPoint corner = widget.mapTo(window, QPoint());
  return window->screen()
      ->grabWindow(window->winId(), corner.x(), corner.y(), widget.width(), widget.height())
      .toImage()
      .convertToFormat(QImage::Format_RGB32);
}

TEST(WrapText, CountsSecondsAsIfWrittenAnew) {
  if (!CanSeeTheDisplay()) GTEST_SKIP() << "on the offscreen platform only";
  const auto show = [](WrapText& text, const QString& words) {
    text.resize(140, 90);
    text.show();
    text.ShowText(words);
    return InkIn(OnDisplay(text));
  };
  WrapText counting(nullptr);
  show(counting, "Silent for a while: 11 s, 1111111");
  for (const char* words : {"Silent for a while: 58 s, 1111881", "Silent for a while: 88 s, 8888888"}) {
    WrapText anew(nullptr);
    const auto [wanted, wantedDark] = show(anew, words);
    const auto [where, dark] = show(counting, words);
    EXPECT_TRUE(where.adjusted(-1, -1, 1, 1).contains(wanted) &&
                wanted.adjusted(-1, -1, 1, 1).contains(where));
    EXPECT_NEAR(dark, wantedDark, wantedDark / 25.0) << words;
  }
}

TEST(StripChart, MovesOnAsIfDrawnAnew) {
  if (!CanSeeTheDisplay()) GTEST_SKIP() << "on the offscreen platform only";
  Desk desk;
  desk.OpenStation(1);
  QWidget* chart = desk.windows.WidgetOf({"frmAcquire", "pctCanvas"});
  // The layout settles with the first pass.
  desk.windows.ShowChanges();
  QApplication::processEvents();
  struct Row {
    int count;
    float value;
    int divisor;
    std::uint32_t color;
  };
  const Row rows[] = {{3, 0.5F, 1, kTraceRed},    {4, 1.15F, 1, kTraceGreen},   {2, 0, 1, kTraceGreen},
                      {5, 0.1F, 10, kTraceRed},   {90, 0.02F, 10, kTraceRed},   {1, 0.9F, 20, kTraceRed},
                      {7, -0.1F, 1, kTraceGreen}, {9, 0.3F, 30, kTraceMagenta}, {101, 0, 1, kTraceRed}};
  for (const Row& row : rows)
    for (int i = 0; i < row.count; ++i) {
      desk.run().TraceColor = row.color;
      desk.run().Chart.AddPoint(row.value + static_cast<float>(i % 3) * row.value / 10, row.divisor);
      desk.windows.ShowChanges();
      const QImage shown = OnDisplay(*chart);
      if (i % 8 > 1) continue;
      chart->update();
      EXPECT_TRUE(shown == OnDisplay(*chart)) << i << " times " << row.value;
    }
}

TEST(StripChart, DrawsTheLastValuesInTheTraceColour) {
  Desk desk;
  desk.OpenStation(1);
  QWidget* chart = desk.windows.WidgetOf({"frmAcquire", "pctCanvas"});
  chart->setFixedSize(701, 351);
  QApplication::processEvents();
  for (int i = 0; i < 101; ++i) desk.run().Chart.AddPoint(i < 100 ? 0.5F : 1.1F);
  for (const auto& [trace, shown] : {std::pair{kTraceRed, 0xFFFF0000}, {kTraceMagenta, 0xFFFF00FF}}) {
    desk.run().TraceColor = trace;
    desk.windows.ShowChanges();
    const QImage picture = chart->grab().toImage();
    // x and y from -0.2 to 1.2 on 701 x 351 pixels: 500 pixels to the unit across, 250 down.
    const auto at = [&](double x, double y) {
      return picture.pixel(qRound((x + 0.2) * 500), qRound((1.2 - y) * 250));
    };
    EXPECT_EQ(at(0, 0.45), shown);
    EXPECT_EQ(at(0.5, 0.6), 0xFFFFFFFF) << "white above a bar";
    EXPECT_EQ(at(1, 1.08), shown) << "the newest value, beyond the box";
    EXPECT_EQ(at(0.3, 1), 0xFF000000) << "the box";
  }
}

}  // namespace
}  // namespace kelp
