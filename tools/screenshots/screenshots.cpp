// SPDX-License-Identifier: GPL-3.0-or-later
// kelp-screenshots FOLDER [dark] [WxH]: draws every window, filled with a station that is being run, into
// FOLDER as PNG files; the acquisition screen as large as a display of that size leaves room (1280x800). The
// scale is that of QT_SCALE_FACTOR; no display is needed (-platform offscreen).
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QPushButton>
#include <cmath>
#include <cstdio>

#include "desktop/windows/focus_style.hpp"
#include "tests/desktop/desk.hpp"
#include "tools/screenshots/review_shots.hpp"

namespace {

using namespace kelp;

class Camera {
 public:
  Camera(Desk& desk, QString folder, QSize display)
      : desk_(desk), folder_(std::move(folder)), room_(display - QSize(0, kTitleBar)) {
    QDir().mkpath(folder_);
  }

  void Take(const std::string& screen, const char* name) {
    QWidget* window = desk_.windows.WindowOf(screen);
    if (!window->isVisible()) desk_.windows.Show(screen);
    window->showNormal();
    window->resize(screen == "frmAcquire" ? room_ : window->sizeHint().boundedTo(room_));
    desk_.windows.ShowChanges();
    QApplication::processEvents();
    const QString path = folder_ + "/" + name + ".png";
    if (!window->grab().save(path)) std::fprintf(stderr, "%s was not written\n", qPrintable(path));
  }

 private:
  static constexpr int kTitleBar = 24;
  Desk& desk_;
  QString folder_;
  QSize room_;
};

// The operator's way through a station, with readings that settle as a real extract does.
class Analyst {
 public:
  explicit Analyst(Desk& desk) : desk_(desk) {}

  void Start() { desk_.Click("frmAcquire", "Command1"); }
  void Settle(double level, int count) {
    for (int i = 0; i < count; ++i) {
      const double unsteady = 0.25 * level * std::exp(-0.9 * i);
      desk_.Read(level + unsteady + level * 0.0004 * std::sin(2.3 * ++noise_));
    }
  }
  /// Loads what the button asks for, reads it, and saves it by hand.
  void Measure(double level) {
    Start();
    Settle(level, 12);
    Start();
  }
  void Sample(double rb, double ra) {
    Measure(rb);
    Measure(ra);
  }

 private:
  Desk& desk_;
  int noise_ = 0;
};

void Configure(Desk& desk, int line, const std::string& value) {
  RewriteField(desk.kelp.run.CfgLines[static_cast<std::size_t>(line)], Padded(value, 35, "R", "S"));
  SaveConfig(desk.kelp);
}

// A box of the create screen.
void FillIn(Desk& desk, int box, const std::string& text) {
  desk.Do({.Kind = EventKind::Edit, .Place = {"frmCreateBase", "Text1", box}, .Text = text});
}

void Run(Desk& desk, Camera& camera) {
  FrmAcquire& form = desk.kelp.frmAcquire;
  Configure(desk, kCfgStation, "90.90");
  Configure(desk, kCfgAnalyst, "PWQ");
  Configure(desk, kCfgRunDate, "11/24/2026 02:41:10");
  Configure(desk, kCfgTube, "42");
  desk.windows.SetPortState("COM1 open  9600,n,8,1");
  desk.windows.SetLastFile("q:\\vault\\2007\\0707\\chl\\chl008.csv");
  Start(desk.kelp);
  camera.Take("frmMain", "main");
  desk.Click("frmMain", "Command1", 1);
  camera.Take("frmEditCFG", "editor");
  desk.windows.Hide("frmEditCFG");
  desk.kelp.frmEditCFG.Form.Visible = false;
  desk.Click("frmMain", "Command1", 0);
  camera.Take("frmLogin", "login");
  desk.platform.QueueAnswer(Answer::Yes);
  desk.Click("frmLogin", "cmdOK");
  FillIn(desk, 1, "93.3 70");
  FillIn(desk, 2, "24");
  FillIn(desk, 3, "1");
  FillIn(desk, 4, "43");
  FillIn(desk, 5, "11/23/2026");
  FillIn(desk, 6, "21:40:00");
  camera.Take("frmCreateBase", "create");
  desk.Click("frmCreateBase", "cmdCreateBase", 0);
  camera.Take("frmAcquire", "acquire-start");

  Analyst analyst(desk);
  analyst.Start();
  analyst.Measure(0.0141);  // blank
  while (form.Command1.Caption.find("Copro") != std::string::npos) analyst.Measure(1.8321);
  while (form.Command1.Caption.find("tandard") != std::string::npos) analyst.Measure(6.41);
  for (int depth = 0; depth < 24; ++depth)
    form.datalog.Text(depth + 1, kColDepth) = std::to_string(depth < 12 ? 5 + depth * 6 : 80 + depth * 4);
  const double ratios[] = {2.02, 1.98, 1.61, 2.05, 1.31, 1.97, 1.02};
  for (int i = 0; i < 7; ++i) analyst.Sample(2.4 + 0.37 * i, (2.4 + 0.37 * i) / ratios[i]);
  form.datalog.Text(3, kColReadCom) = "cloudy extract, read twice";
  form.datalog.Text(5, kColFiltCom) = "torn filter";
  form.txtStaInfo[kStaTau].Problem = "tau is to be a number above 1, such as 2.288";
  analyst.Start();
  analyst.Settle(5.017, 7);
  desk.kelp.Focus = {"frmAcquire", "Command1"};
  camera.Take("frmAcquire", "acquire-early");
  for (int i = 0; i < 14; ++i) desk.Read(5.017 + 0.0008 * std::sin(2.3 * i));
  camera.Take("frmAcquire", "acquire");
  analyst.Start();
  camera.Take("frmAcquire", "acquire-acidify");
  desk.Click("frmAcquire", "Check1");
  for (int i = 0; i < 9; ++i) desk.Read(5.017 - 0.27 * i);
  desk.Click("frmAcquire", "Command1");
  analyst.Settle(2.61, 12);
  camera.Take("frmAcquire", "acquire-ra");
  desk.platform.LineDown();
  desk.platform.Advance(12000);
  Pass(desk.kelp);
  SetWarning(desk.kelp, "READINGS ARE NOT SAFE ON THE DISK. ");
  camera.Take("frmAcquire", "acquire-alarm");
  camera.Take("frmWhatsNext", "whats-next");
  camera.Take("frmChangeStep", "change-step");
  camera.Take("dlgRunRem", "remarks");
  camera.Take("frmRecalc", "recalculate");
  camera.Take("frmProgress", "progress");
}

}  // namespace

int main(int argc, char** argv) try {
  QApplication app(argc, argv);
  const QStringList words = QApplication::arguments();
  if (words.size() < 2) {
    std::fputs("kelp-screenshots FOLDER [dark] [WxH]\n", stderr);
    return 2;
  }
  ApplyScheme(words.contains("dark") ? SchemeChoice::Dark : SchemeChoice::Light);
  QSize display(1280, 800);
  for (const QString& word : words)
    if (const QStringList sides = word.split('x'); sides.size() == 2 && sides[0].toInt() > 0)
      display = {sides[0].toInt(), sides[1].toInt()};
  Desk desk;
  desk.windows.KeyRest = 0;
  Camera camera(desk, words[1], display);
  Run(desk, camera);
  TakeReviewPictures(desk, words[1]);
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "kelp-screenshots: %s\n", error.what());
  return 1;
}
