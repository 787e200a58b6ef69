// Labels and frames whose words may be longer than their place: they end in an ellipsis there, and
// a tip tells the whole. Other programs are told the whole words too.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QStyleOptionGroupBox>

#include "platform/input_box.h"

namespace quarvel::platform::qt {

// Breaks its words into lines where it is high enough for two of them, and words without blanks
// that are wider than a line.
class FittedLabel : public QLabel {
 public:
  explicit FittedLabel(QWidget& parent);

  // `marked` as QLabel takes its text, `words` without the mark of an access key.
  void SetWords(const QString& marked, const QString& words);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  int MarkFlag() const { return buddy() == nullptr ? 0 : Qt::TextShowMnemonic; }
  // What is shown of the text, and that as it is painted.
  QString Fitted() const;
  QString Painted() const;
  void Fit();

  QString words_;
};

class FittedFrame : public QGroupBox {
 public:
  explicit FittedFrame(QWidget& parent) : QGroupBox(&parent) {}

  // As FittedLabel::SetWords.
  void SetWords(const QString& marked, const QString& words);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QString Fitted() const;
  QStyleOptionGroupBox Look() const;
  void Fit();

  QString words_;
};

// Of labels on the screen of `owner`, on the first one without an owner.
WordsOnScreen WordsOnScreenOf(const QWidget* owner);

}  // namespace quarvel::platform::qt
