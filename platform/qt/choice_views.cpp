// Combo boxes and tab strips.
#include <QComboBox>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOptionTabWidgetFrame>
#include <QTabBar>

#include "platform/input_controls.h"
#include "platform/qt/control_view.h"
#include "platform/qt/form_window.h"
#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {
namespace {

class ComboView : public ViewOf<ComboBox, QComboBox> {
 public:
  ComboView(FormWindow& owner, Control& control)
      : ViewOf(owner, control, new QComboBox(&owner.inner())) {
    QObject::connect(&widget_, &QComboBox::activated, [this](int index) {
      if (ForUser([this, index] { Own().Select(index); })) Show(Change::kSelection);
    });
  }

 protected:
  void Show(Change change) override {
    const QSignalBlocker quiet(widget_);
    if (change == Change::kContents) {
      widget_.clear();
      for (const std::string& item : Own().items()) widget_.addItem(ToQt(item));
    }
    if (change == Change::kContents || change == Change::kSelection) {
      widget_.setCurrentIndex(Own().list_index());
    }
  }
};

// Tabs over the frame of the page that they turn. The page's controls stand before it, not in it.
class TabWidget : public QWidget {
 public:
  explicit TabWidget(QWidget* parent) : QWidget(parent), bar(new QTabBar(this)) {
    bar->setDrawBase(false);
    bar->setExpanding(false);
    setFocusProxy(bar);
  }

  QTabBar* const bar;

 protected:
  void resizeEvent(QResizeEvent*) override {
    bar->setGeometry(0, 0, width(), bar->sizeHint().height());
  }

  void paintEvent(QPaintEvent*) override {
    const int overlap = style()->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, bar);
    QStyleOptionTabWidgetFrame frame;
    frame.initFrom(this);
    frame.rect.setTop(bar->height() - overlap);
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    frame.shape = QTabBar::RoundedNorth;
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameTabWidget, &frame, &painter, this);
  }
};

class TabView : public ViewOf<TabStrip, TabWidget> {
 public:
  TabView(FormWindow& owner, Control& control)
      : ViewOf(owner, control, new TabWidget(&owner.inner())) {
    for (const std::string& caption : Own().captions()) {
      widget_.bar->addTab(ToQt(caption).replace(u'&', QLatin1String("&&")));
    }
    widget_.bar->setAccessibleName(widget_.accessibleName());
    QObject::connect(widget_.bar, &QTabBar::currentChanged, [this](int page) {
      if (ForUser([this, page] { Own().Select(page); })) Show(Change::kSelection);
    });
  }

 protected:
  void Show(Change change) override {
    if (change != Change::kSelection) return;
    const QSignalBlocker quiet(widget_.bar);
    widget_.bar->setCurrentIndex(Own().current());
  }
};

}  // namespace

std::unique_ptr<ControlView> MakeChoiceView(FormWindow& owner, Control& control) {
  if (control.kind() == ControlKind::kComboBox) {
    return std::make_unique<ComboView>(owner, control);
  }
  return std::make_unique<TabView>(owner, control);
}

}  // namespace quarvel::platform::qt
