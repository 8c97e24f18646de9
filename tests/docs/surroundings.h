// SPDX-License-Identifier: MIT
#pragma once

// What the examples in the headers take for granted; it stands behind the headers that have examples.

#include <ui_base/assistants/session_subject.h>
#include <ui_base/assistants/shortcut_scheme.h>
#include <ui_base/commands/flyout_command.h>
#include <ui_base/popups/info_view.h>
#include <ui_toolkit/image_viewer_tool_bar.h>
#include <vgsobjects/line_object.h>
#include <vlk_app_service/i_app_manager.h>

#include <QTest>
#include <QtWidgets>

using namespace Taren::Core;
using namespace Taren::Objects;
using namespace Vela;
using namespace Vela::Common;
using namespace Vela::Graphics;
using namespace Vela::Services;
using namespace Vela::UiBase;
using namespace Vela::UiToolkit;

#define A_COMMAND(Name)                                                                                      \
  struct Name : CommandBase {                                                                                \
    Q_OBJECT                                                                                                 \
    COMMAND_ID(Name)                                                                                         \
  public:                                                                                                    \
    explicit Name(CmdsViewController* controller) : CommandBase(controller) {}                               \
    bool onExecuteAsync(bool checked) override;                                                              \
    void setIterations(int iterations);                                                                      \
  };
A_COMMAND(OpenCommand)
A_COMMAND(ConvertCommand)
A_COMMAND(CancelCommand)
A_COMMAND(GridCommand)
A_COMMAND(FlatShadingCommand)
A_COMMAND(SmoothShadingCommand)
A_COMMAND(SmoothMeshCommand)

struct SmoothCommand : FlyoutCommand {
  Q_OBJECT
  COMMAND_ID(SmoothCommand)
public:
  SmoothCommand(FlyoutBase* flyout, CmdsViewController* controller) : FlyoutCommand(flyout, controller) {}
  bool onExecuteAsync(bool apply) override;
};

struct Mesh {
  void smooth();
};

struct MeshView : BaseView {
  struct Camera {
    std::optional<QPointF> project(const QVector3D& point, const QSize& size) const;
  };
  using BaseView::BaseView;
  void paintEvent(QPaintEvent* event) override;
  Camera m_camera;
  QList<std::shared_ptr<AnnotationObject>> m_annotations;
};

struct MeshController : CmdsViewController {
  using CmdsViewController::CmdsViewController;
};

struct PhotoController : BaseViewController {
  using BaseViewController::BaseViewController;
};

#define A_TOOL(Name)                                                                                         \
  struct Name : InteractiveTool {                                                                            \
    explicit Name(MeshView* view) : InteractiveTool(view) {}                                                 \
    bool mouseMove(QMouseEvent* event) override;                                                             \
    bool mouseRelease(QMouseEvent* event) override;                                                          \
    bool perform(const ToolOperation& operation);                                                            \
    void pan(const QPointF& by);                                                                             \
    QVector3D from, to;                                                                                      \
  };
A_TOOL(MeasureTool)
A_TOOL(OrbitTool)
A_TOOL(PanTool)
A_TOOL(PickTool)
A_TOOL(ZoomTool)

struct ProgressProtocol {
  virtual ~ProgressProtocol();
  virtual void advanced(int percent) = 0;
};

struct Progressing : QLabel, ProgressProtocol {
  void advanced(int percent) override;
};

struct ImportProtocol {
  virtual ~ImportProtocol();
  virtual bool mayReplace(void* importer) = 0;
};

struct MyAppManager : IAppManager {
  QList<CommandBase*> commandsFor(CmdsViewController* controller) override;
};

struct MyApp : IService {
  ERcmStatus Initialize() override;
  void Terminate() override;
  QString ServiceName() const override;
};
using MeshStore = MyApp;
using WorkbenchApp = MyApp;

struct MyView : InfoView {
  using InfoView::InfoView;
  void SetContent(const QString& html, const QUrl& baseUrl) override;
};

struct Viewer : QWidget {
  void zoomIn();
  void handleKey(Qt::Key key);
};

struct VolumeJob : QObject {
  Q_OBJECT
Q_SIGNALS:
  void finished(double model, double supports);
};

struct Preferences : QObject {
  void storeVolumeUnit(int unit);
};

extern struct Atlas { QIcon icon(const QString& path) const; } m_atlas;

struct Exporter : QObject {
  void start();
};

struct HelpWindow : QWidget {
  void open(int index, const QString& keyword);
};

extern struct Document { Mesh mesh() const; } m_document;
extern MeshController* m_controller;
QString hash(const Mesh& mesh);
void complain(const QString& text);

struct ExportPanel : QWidget {};
struct SmoothingPanel : QWidget {};

bool open();
void close();
bool openDropped(const QDropEvent& event);
bool saveChanges();
bool smoothMesh();
bool toggleFullSize();
void pan(const QPointF& by);
QWidget* makeGridTooltip();
template <class F>
void queue(F) {}

struct Surroundings : QWidget {
  void closeMesh(const QString& answer);
  QPoint GetMenuPosition() const;
  QToolButton* buttonFor(QAction* action) const;
  void setText(const Text& text);

  ContextHold m_hold;
  FocusKeeper m_focus;
  QWidget *m_panel, *m_menu;
  HelpWindow* m_help;
  TooltipWrapper* m_hint;
  WidgetPosCalculator* m_place;
};

struct SurroundingCommand : CommandBase {
  void work(int step);
  int count;
  int rounds;
  Mesh m_mesh;
  Mesh m_result;
};

#define SURROUNDINGS                                                                                         \
  QApplication& application = *static_cast<QApplication*>(qApp);                                             \
  QMainWindow* window = nullptr;                                                                             \
  MeshView* view = nullptr;                                                                                  \
  MeshController* controller = nullptr;                                                                      \
  std::shared_ptr<CmdMgr> manager;                                                                           \
  CommandBase *command = nullptr, *smoothCommand = nullptr, *zoomCommand = nullptr, *undoCommand = nullptr,  \
              *redoCommand = nullptr;                                                                        \
  CommandGroup *shadingGroup = nullptr, *viewGroup = nullptr, *repairGroup = nullptr,                        \
               *selectionGroup = nullptr, *group = nullptr, *measuring = nullptr, *picking = nullptr;        \
  Delegator<DynamicCommandGroupStateProtocol>* selection = nullptr;                                          \
  ToolBar *bar = nullptr, *mainToolbar = nullptr;                                                            \
  MenuBuilder* builder = nullptr;                                                                            \
  FlyoutBase* flyout = nullptr;                                                                              \
  TooltipObject* tooltipObject = nullptr;                                                                    \
  TooltipEx* tooltip = nullptr;                                                                              \
  Progressing* label = nullptr;                                                                              \
  QLabel* note = nullptr;                                                                                    \
  QMenu* menu = nullptr;                                                                                     \
  QPushButton* button = nullptr;                                                                             \
  QSlider* slider = nullptr;                                                                                 \
  QWidget *panel = nullptr, *layer = nullptr, *preview = nullptr;                                            \
  Viewer* viewer = nullptr;                                                                                  \
  VolumeJob* job = nullptr;                                                                                  \
  QList<QAction*> actions;                                                                                   \
  std::shared_ptr<ToolStack> stack;                                                                          \
  std::shared_ptr<Mesh> mesh;                                                                                \
  ShortcutScheme* scheme = nullptr;                                                                          \
  SArrowParam arrow;                                                                                         \
  QVector3D from, to;                                                                                        \
  QPoint point, pointBelowTheButton;                                                                         \
  QIcon icon;                                                                                                \
  QByteArray chartSvg;                                                                                       \
  QString id;                                                                                                \
  Text step{QString()};                                                                                      \
  QSettings settings;                                                                                        \
  Kernel& kernel = *static_cast<Kernel*>(nullptr);                                                           \
  AnnotationDevice& device = *static_cast<AnnotationDevice*>(nullptr);                                       \
  NotificationBar* notifications = nullptr;                                                                  \
  ArrowedWindow* popup = nullptr;                                                                            \
  Exporter* exporter = nullptr;                                                                              \
  Preferences* preferences = nullptr;                                                                        \
  Broadcaster<ProgressProtocol>& progress = *static_cast<Broadcaster<ProgressProtocol>*>(nullptr);           \
  std::shared_ptr<ProgressProtocol> sharedLog;                                                               \
  Delegator<ImportProtocol>& importer = *static_cast<Delegator<ImportProtocol>*>(nullptr);                   \
  std::shared_ptr<ImportProtocol> sharedDelegate;                                                            \
  WidgetPosCalculator* calculator = nullptr;                                                                 \
  SessionSubject& subject = *static_cast<SessionSubject*>(nullptr);                                          \
  QString file, error;                                                                                       \
  const Placement::Target target;                                                                            \
  const bool verifySlid = false;                                                                             \
  const auto layOut = [](SArrowParam&, QSize&, QPoint&) { return true; };                                    \
  const auto verify = [](const QPoint&, const QRect&, QPoint&) { return true; };                             \
  EDirection side = Left;                                                                                    \
  PlacementSearch search;                                                                                    \
  QList<ArrowPair> pairs;
