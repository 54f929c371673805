#include "ui/MainWindow.h"

#include <QCloseEvent>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <algorithm>

#include "ui/SettingsWrapping.h"
#include "ui/controls/FlowLayout.h"
#include "ui/controls/FocusFrameStyle.h"
#include "ui_MainWindow.h"

// The icons live in this library; a static library's resources are only
// linked in when something refers to them.
static void LoadWindowResources() {
    Q_INIT_RESOURCE(vellumo);
}

namespace vellumo {

namespace {

// The list's three command buttons flow onto a second row when the panel is
// narrower than they are together (a small window, a longer language); the
// view-mode buttons stay at the row's right end.
void FlowListButtons(Ui::MainWindow& ui) {
    QHBoxLayout* row = ui.listButtonsLayout;
    auto* flow = new FlowLayout;
    flow->setContentsMargins(0, 0, 0, 0);
    flow->setSpacing(row->spacing());
    for (QWidget* button :
         {static_cast<QWidget*>(ui.buttonAddImages), static_cast<QWidget*>(ui.buttonRemoveSelected),
          static_cast<QWidget*>(ui.buttonRemoveAll)}) {
        row->removeWidget(button);
        flow->addWidget(button);
    }
    row->insertLayout(0, flow, 1);
    row->setAlignment(ui.buttonShowList, Qt::AlignTop);
    row->setAlignment(ui.buttonShowContactSheet, Qt::AlignTop);
}

}  // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), ui_(std::make_unique<Ui::MainWindow>()) {
    LoadWindowResources();
    // The focused control shows it in a dark palette as in a light one.
    FocusFrameStyle::Install();
    ui_->setupUi(this);
    splitter_ = ui_->splitterMain;
    FlowListButtons(*ui_);
    WrapCropTabRows(*ui_);
    // The job's status line keeps its height when it is empty, so the window
    // does not move when a job starts or ends.
    ui_->labelJobStatus->setMinimumHeight(ui_->labelJobStatus->fontMetrics().height());
    // The description's size suits a 1280 x 800 screen; never open larger
    // than the screen at hand.
    if (const QScreen* screen = this->screen()) {
        resize(size().boundedTo(screen->availableGeometry().size()));
    }
}

MainWindow::~MainWindow() = default;

void MainWindow::SetDelegate(WindowDelegate* delegate) {
    delegate_ = delegate;
}

namespace {

const auto kGeometryKey = QStringLiteral("window/geometry");
const auto kSplitterKey = QStringLiteral("window/splitter");

}  // namespace

void MainWindow::RestoreState() {
    const QSettings settings;
    restoreGeometry(settings.value(kGeometryKey).toByteArray());
    restoredSplit_ = settings.value(kSplitterKey).toByteArray();
}

void MainWindow::RememberState() const {
    QSettings settings;
    settings.setValue(kGeometryKey, saveGeometry());
    settings.setValue(kSplitterKey, splitter_->saveState());
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!splitInitially_) {
        splitInitially_ = true;
        if (!restoredSplit_.isEmpty() && splitter_->restoreState(restoredSplit_)) {
            return;
        }
        // The list of full paths gets a little less than half of the width,
        // but in a narrow window the settings come first: the list keeps
        // only what the settings leave of their full width, at least its
        // own smallest. Later the splitter keeps whatever the user makes of
        // it.
        const int width = splitter_->width() - splitter_->handleWidth();
        const int settingsWidth = ui_->panelSettings->sizeHint().width();
        const int listWidth = std::max(ui_->panelImages->minimumSizeHint().width(),
                                       std::min(width * 46 / 100, width - settingsWidth));
        splitter_->setSizes({listWidth, width - listWidth});
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (delegate_ != nullptr && !delegate_->windowShouldClose(*this)) {
        event->ignore();
        return;
    }
    event->accept();
}

}  // namespace vellumo
