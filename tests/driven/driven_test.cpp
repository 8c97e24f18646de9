// SPDX-License-Identifier: MIT
#include "desktop.h"

#include <workbench/test_meshes.h>

#include <QCoreApplication>
#include <QDir>
#include <QTest>

using namespace Driven;

namespace {

// The folder for the pictures of the tour, and the OBJ file and the photograph to show in them.
constexpr const char* TourVariable = "VELA_TOUR";
constexpr const char* TourMeshVariable = "VELA_TOUR_MESH";
constexpr const char* TourPhotoVariable = "VELA_TOUR_PHOTO";

QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Behind the mesh the brightness changes from top to bottom only.
bool showsMesh(const QImage& image) {
  for (int x = 1; x < image.width(); ++x) {
    if (image.pixel(x, image.height() / 2) != image.pixel(0, image.height() / 2))
      return true;
  }
  return false;
}

} // namespace

#define WAIT_UNTIL(condition) QVERIFY(QTest::qWaitFor([&] { return bool(condition); }, TimeLimit))

// One sitting at the workbench: each function goes on from where the one before left it.
class DrivenTest : public QObject {
  Q_OBJECT

private Q_SLOTS:
  void initTestCase() {
    atspi_init();
    Hands::moveAway();
    QFile file(meshFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray scan = contentOf(qEnvironmentVariable(TourMeshVariable));
    QVERIFY(file.write(scan.isEmpty() ? Workbench::Test::objFile(Workbench::Test::blob(80)) : scan) > 0);
    file.close();
    QVERIFY(m_program.start(QCoreApplication::applicationDirPath() + "/workbench"));
    WAIT_UNTIL(title() == "Workbench");
    WAIT_UNTIL(m_program.window().has(ATSPI_STATE_ACTIVE));
    m_view = m_program.await(ATSPI_ROLE_CANVAS, "Mesh view");
    WAIT_UNTIL(m_view.has(ATSPI_STATE_FOCUSED));
  }

  void init() {
    if (m_failed)
      QSKIP("a step before this one failed");
  }

  void cleanup() {
    if (!QTest::currentTestFailed() || m_failed)
      return;
    m_failed = true;
    qInfo("What was to be seen:\n%s", qPrintable(m_program.tree()));
  }

  void opensAMeshByTheFileDialog() {
    openFile(meshFile());
    WAIT_UNTIL(title() == "part.obj – Workbench");
    WAIT_UNTIL(showsMesh(mesh()));
    WAIT_UNTIL(m_view.has(ATSPI_STATE_FOCUSED));
    QVERIFY(!button("Save").has(ATSPI_STATE_ENABLED));
    WAIT_UNTIL(m_view.description().startsWith("Triangles: "));
    keepPicture("open");
  }

  void aPanelShowsAPreviewBehindWhichTheMeshTurns() {
    const QImage before = mesh();
    Hands::press({"ctrl+alt+m"});
    const Accessible iterations = m_program.await(ATSPI_ROLE_SPIN_BUTTON, "Iterations");
    WAIT_UNTIL(iterations.has(ATSPI_STATE_FOCUSED));
    Hands::type("60");
    WAIT_UNTIL(iterations.text() == "60");
    WAIT_UNTIL(mesh() != before);
    QVERIFY(button("Apply").has(ATSPI_STATE_ENABLED));
    QCOMPARE(title(), "part.obj – Workbench"); // so far it is a picture only
    const QImage preview = mesh();
    Hands::drag(m_view.rect().center(), m_view.rect().center() + QPoint(150, 30), RightButton);
    WAIT_UNTIL(mesh() != preview);
    QCOMPARE(m_program.find(ATSPI_ROLE_SPIN_BUTTON, "Iterations").text(), "60");
    keepPicture("turned");
  }

  void escapeClosesThePanelWithoutATrace() {
    Hands::press({"Escape"});
    WAIT_UNTIL(!m_program.find(ATSPI_ROLE_SPIN_BUTTON, "Iterations"));
    WAIT_UNTIL(m_view.has(ATSPI_STATE_FOCUSED));
    QCOMPARE(title(), "part.obj – Workbench");
    QVERIFY(!button("Undo").has(ATSPI_STATE_ENABLED));
  }

  void aClickAppliesThePanelAndUndoTakesItBack() {
    Hands::press({"ctrl+alt+m"});
    WAIT_UNTIL(m_program.find(ATSPI_ROLE_SPIN_BUTTON, "Iterations").has(ATSPI_STATE_FOCUSED));
    Hands::click(button("Apply").rect().center());
    WAIT_UNTIL(title() == "part.obj* – Workbench");
    WAIT_UNTIL(!m_program.find(ATSPI_ROLE_SPIN_BUTTON, "Iterations"));
    WAIT_UNTIL(button("Undo Smooth").has(ATSPI_STATE_ENABLED));
    const QImage before = mesh();
    Hands::press({"ctrl+z"});
    WAIT_UNTIL(title() == "part.obj – Workbench");
    WAIT_UNTIL(button("Redo Smooth").has(ATSPI_STATE_ENABLED));
    WAIT_UNTIL(mesh() != before);
  }

  void aDragMeasures() {
    Hands::press({"ctrl+2"});
    WAIT_UNTIL(m_program.find(ATSPI_ROLE_CHECK_BOX, "Measure").has(ATSPI_STATE_CHECKED));
    Hands::drag(m_view.rect().center(), m_view.rect().center() + QPoint(60, 90), LeftButton);
    WAIT_UNTIL(m_view.description().startsWith("Distance: "));
    Hands::moveAway();
    keepPicture("measured");
  }

  void photographsHaveAPageOfTheirOwn() {
    const QImage photo(qEnvironmentVariable(TourPhotoVariable));
    QVERIFY((photo.isNull() ? m_program.picture(m_view.rect()) : photo).save(m_program.path("photo.png")));
    Hands::press({"alt+2"});
    const Accessible view = m_program.await(ATSPI_ROLE_CANVAS, "Photograph view");
    WAIT_UNTIL(view.has(ATSPI_STATE_FOCUSED));
    openFile(m_program.path("photo.png"));
    WAIT_UNTIL(title() == "photo.png – Workbench");
    WAIT_UNTIL(view.has(ATSPI_STATE_FOCUSED));
    QVERIFY(menu("Photograph") && !menu("Selection"));
    keepPicture("photograph");
    Hands::press({"alt+1"});
    WAIT_UNTIL(m_view.has(ATSPI_STATE_FOCUSED));
    WAIT_UNTIL(menu("Selection") && !menu("Photograph"));
  }

  void theLanguageChangesUnderTheUser() {
    Hands::press({"ctrl+alt+m"});
    const Accessible iterations = m_program.await(ATSPI_ROLE_SPIN_BUTTON, "Iterations");
    WAIT_UNTIL(iterations.has(ATSPI_STATE_FOCUSED));
    Hands::press({"4", "2", "alt+v"});
    WAIT_UNTIL(m_program.find(ATSPI_ROLE_MENU_ITEM, "Language"));
    Hands::press({"l"});
    WAIT_UNTIL(m_program.find(ATSPI_ROLE_MENU_ITEM, "English").has(ATSPI_STATE_CHECKED));
    Hands::press({"d"});
    // The same things, by their other names.
    WAIT_UNTIL(iterations.name() == "Durchgänge");
    QCOMPARE(iterations.text(), "42");
    WAIT_UNTIL(iterations.has(ATSPI_STATE_FOCUSED));
    WAIT_UNTIL(m_view.name() == "Netzansicht" && m_view.description().startsWith("Abstand: "));
    QVERIFY(menu("Auswahl") && !menu("Selection"));
    keepPicture("german");
    Hands::press({"Escape"});
    WAIT_UNTIL(!m_program.find(ATSPI_ROLE_SPIN_BUTTON, "Durchgänge"));
  }

  void thePaletteTurnsDark() {
    const auto background = [this] { return mesh().pixelColor(0, 0).lightness(); };
    const int before = background();
    Hands::press({"ctrl+shift+d"});
    WAIT_UNTIL(background() != before);
    WAIT_UNTIL(m_program.picture(m_program.window().rect()).pixelColor(5, 5).lightness() < 100);
    keepPicture("dark");
  }

  void everythingFitsIntoASmallWindow() {
    Hands::resizeWindow({400, 300});
    WAIT_UNTIL(m_program.window().rect().size() == QSize(400, 300));
    const QRect window = m_program.window().rect();
    WAIT_UNTIL(window.contains(m_view.rect()));
    // Of bars that are too long the last button opens the rest.
    QVERIFY(m_program.find([](const Accessible& seen) { return seen.name() == "Weitere Knöpfe"; }));
    WAIT_UNTIL(!m_program.find([&](const Accessible& seen) {
      const AtspiRole role = seen.role();
      const bool shallFit = role == ATSPI_ROLE_TOOL_BAR || role == ATSPI_ROLE_MENU_ITEM ||
                            role == ATSPI_ROLE_STATUS_BAR || seen.name() == "Weitere Knöpfe";
      return shallFit && !window.contains(seen.rect());
    }));
    const auto bar = [this](const QString& name) { return m_program.find(ATSPI_ROLE_TOOL_BAR, name).rect(); };
    WAIT_UNTIL(!bar("Hauptleiste").intersects(bar("Aktionen")));
    WAIT_UNTIL(showsMesh(mesh()));
    keepPicture("small");
  }

  void savingTakesTheMarkAway() {
    m_saved = contentOf(meshFile());
    Hands::press({"ctrl+m"});
    WAIT_UNTIL(title() == "part.obj* – Workbench");
    Hands::press({"ctrl+s"});
    WAIT_UNTIL(title() == "part.obj – Workbench");
    const QByteArray before = std::exchange(m_saved, contentOf(meshFile()));
    QVERIFY(m_saved != before);
    QCOMPARE(m_saved.count("\nf "), before.count("\nf "));
  }

  void quittingAsksBeforeChangesAreLost() {
    Hands::press({"ctrl+m"});
    WAIT_UNTIL(title() == "part.obj* – Workbench");
    Hands::press({"ctrl+q"});
    const Accessible question = m_program.await(ATSPI_ROLE_DIALOG, "Beenden");
    WAIT_UNTIL(question.find(ATSPI_ROLE_PUSH_BUTTON, "Speichern").has(ATSPI_STATE_FOCUSED));
    keepPicture("quit", question.rect());
    Hands::press({"Escape"});
    WAIT_UNTIL(!m_program.find(ATSPI_ROLE_DIALOG, "Beenden"));
    WAIT_UNTIL(m_program.window().has(ATSPI_STATE_ACTIVE));
    QCOMPARE(title(), "part.obj* – Workbench");
  }

  void quittingDiscardsWhatIsNotWanted() {
    Hands::press({"ctrl+q"});
    WAIT_UNTIL(m_program.find(ATSPI_ROLE_DIALOG, "Beenden").has(ATSPI_STATE_ACTIVE));
    Hands::press({"alt+v"});
    QVERIFY(m_program.hasEnded());
    QCOMPARE(m_program.exitCode(), 0);
    QCOMPARE(contentOf(meshFile()), m_saved);
  }

private:
  QString meshFile() const { return m_program.path("part.obj"); }
  QString title() const { return m_program.window().name(); }
  Accessible button(const QString& name) const { return m_program.find(ATSPI_ROLE_PUSH_BUTTON, name); }
  bool menu(const QString& name) const { return bool(m_program.find(ATSPI_ROLE_MENU_ITEM, name)); }

  // The middle of the view, which no bar and no panel covers.
  QImage mesh() const {
    QRect part(0, 0, 120, 120);
    part.moveCenter(m_view.rect().center());
    return m_program.picture(part);
  }

  void openFile(const QString& path) const {
    Hands::press({"ctrl+o"});
    const Accessible field = m_program.await(ATSPI_ROLE_TEXT, "File name:");
    WAIT_UNTIL(field.has(ATSPI_STATE_FOCUSED));
    Hands::type(path);
    WAIT_UNTIL(field.text() == path);
    Hands::press({"Return"});
    WAIT_UNTIL(!m_program.find(ATSPI_ROLE_DIALOG, "Open"));
  }

  // Of the window unless told, for the tour, when what moves has come to rest.
  void keepPicture(const QString& name, const QRect& part = {}) const {
    if (!qEnvironmentVariableIsSet(TourVariable))
      return;
    const QRect place = part.isValid() ? part : m_program.window().rect();
    QImage last;
    WAIT_UNTIL(std::exchange(last, m_program.picture(place)) == last);
    const QDir folder(qEnvironmentVariable(TourVariable));
    QVERIFY(last.save(folder.filePath(QStringLiteral("tour_%1.png").arg(name))));
  }

  Program m_program;
  Accessible m_view;
  QByteArray m_saved; // what the file held last
  bool m_failed = false;
};

QTEST_MAIN(DrivenTest)
#include "driven_test.moc"
