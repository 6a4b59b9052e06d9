#pragma once

#include <QFrame>
#include <QImage>
#include <memory>

#include "sample/SampleIndex.h"

namespace gazetteer {

/// Two pages of a sample index, laid out by the settings that the form shows. Lays out and draws
/// from the event loop, once for any number of changes before it.
class SamplePicture final : public QFrame {
    Q_OBJECT

public:
    explicit SamplePicture(host::Ref<host::IHost> host, QWidget* parent = nullptr);

    void SetTypesetting(const Typesetting& typesetting);
    /// Marks what a setting concerns.
    void SetSubject(Subject subject);
    Subject ShownSubject() const { return subject_; }

    /// Lays out and draws what is due. Shows no failure: the picture says why there is none.
    void Renew();
    const QImage& Picture() const { return picture_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void RenewSoon();
    void LayOut();
    void Draw();
    double PixelsPerInch() const;

    host::Ref<host::IHost> host_;
    std::unique_ptr<SampleIndex> sample_;  ///< Null until it is first laid out.
    Typesetting typesetting_;
    Subject subject_ = Subject::Nothing;
    QList<QRectF> marks_;  ///< Inches, from the upper left corner of the first page.
    QImage picture_;
    QString fault_;
    bool isLaidOut_ = false;
    bool isDue_ = false;  ///< Renew is on its way.
};

}  // namespace gazetteer
