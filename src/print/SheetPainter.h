#pragma once

#include "print/PrintedPages.h"

#include <QHash>
#include <QImage>
#include <QPainter>
#include <QStringList>

#include <memory>

class QPagedPaintDevice;

namespace quorrel {

/// Draws sheets, on paper or on the screen. A picture is read once.
class SheetPainter {
public:
    /// Draws a sheet from the origin on, a point of its layout as a unit of the painter.
    void Paint(QPainter& painter, const PrintedSheet& sheet, const SheetLayout& layout);

private:
    const QImage& ImageOf(const QString& path);

    QHash<QString, QImage> m_images;
};

/// A picture that is read from a file, at its size on a screen of 96 dots an inch. Empty where the
/// file is missing or no picture.
Picture PictureFrom(const QString& path);

/// Sets the paper and the margins of a device for what was laid out. Where its own margins have to
/// be wider, they stay so.
void SetUpPaper(QPagedPaintDevice& device, const SheetLayout& layout);

/// The error for a file that cannot be written, and for a device that takes no page.
PrintError CannotWrite(const QString& path);
PrintError NoPageTaken();

/// Draws sheets on a device as they come, smaller than they are laid out where its paper is. What
/// cannot be done throws `PrintError`.
class SheetPress {
public:
    explicit SheetPress(QPagedPaintDevice& device);

    void Take(const PrintedSheet& sheet, const SheetLayout& layout);
    void End();

private:
    QPagedPaintDevice& m_device;
    QPainter m_painter;
    SheetPainter m_sheets;
    int m_drawn = 0;
};

/// Writes each document into a PDF file of its own, whole or not at all. What cannot be written
/// throws `PrintError`.
class PdfFiles : public PrintTarget {
public:
    /// The first document goes to `path`, the next ones have " 2" and so on behind its name.
    explicit PdfFiles(const QString& path);
    ~PdfFiles() override;

    void Begin(const QString& title, const SheetLayout& layout) override;
    void Take(const PrintedSheet& sheet) override;
    void End() override;
    void Drop() override;

    /// Where the next document goes.
    QString NextPath() const;

    /// The files that stand whole.
    const QStringList& Written() const { return m_written; }

private:
    struct Document;

    QString m_path;
    QStringList m_written;
    std::unique_ptr<Document> m_open;
};

/// Prints on paper, document by document. A printer that is not there or takes nothing throws
/// `PrintError`.
class PaperPrints : public PrintTarget {
public:
    /// `printer` is its name.
    explicit PaperPrints(const QString& printer);
    ~PaperPrints() override;

    void Begin(const QString& title, const SheetLayout& layout) override;
    void Take(const PrintedSheet& sheet) override;
    void End() override;
    void Drop() override;

private:
    struct Document;

    QString m_printer;
    std::unique_ptr<Document> m_open;
};

} // namespace quorrel
