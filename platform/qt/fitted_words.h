// Labels and frames whose words may be longer than their place: they end in an ellipsis there, and
// a tip tells the whole. Other programs are told the whole words too.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QStyleOptionGroupBox>

namespace quarvel::platform::qt {

// Breaks its words into lines where it is high enough for two of them.
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
  // What is shown of the text.
  QString Fitted() const;
  void Fit();

  QString words_;
};

class FittedBox : public QGroupBox {
 public:
  explicit FittedBox(QWidget& parent) : QGroupBox(&parent) {}

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

}  // namespace quarvel::platform::qt
