// SPDX-License-Identifier: MIT
// What Qt's raster engine can do of the benchmarks' tasks, on premultiplied and on straight images.
#include "bench/imaging/tasks.h"

#include <QImage>
#include <QPainter>

namespace {

QImage wrap(Image& image, QImage::Format format) {
    return QImage(image.Data(), image.Width(), image.Height(), image.BytesPerRow(), format);
}

// A painter that keeps the image it paints on alive.
struct Canvas {
    QImage image;
    QPainter painter{&image};
};

QColor qt_colour(std::uint32_t straight) {
    return QColor::fromRgba(straight);
}

constexpr ModeRow<QPainter::CompositionMode> kModes[] = {
    {kMergeNormal, QPainter::CompositionMode_SourceOver},
    {kMergeMultiply, QPainter::CompositionMode_Multiply},
    {kMergeScreen, QPainter::CompositionMode_Screen},
    {kMergeErase, QPainter::CompositionMode_DestinationOut},
    {kMergeAdd, QPainter::CompositionMode_Plus},
    {kMergeDarkest, QPainter::CompositionMode_Darken},
    {kMergeLightest, QPainter::CompositionMode_Lighten},
    {kMergeDifference, QPainter::CompositionMode_Difference},
    {kMergeAlphaMask, QPainter::CompositionMode_DestinationIn},
    {kMergeCopy, QPainter::CompositionMode_Source},
};

}  // namespace

void add_qt(Contest& contest, const Composition& task) {
    const auto mode = operation_of(task.mode, kModes);
    if (!mode)
        return;
    for (const bool premultiplied : {true, false}) {
        Scene& scene = *task.scene;
        const auto format = premultiplied ? QImage::Format_ARGB32_Premultiplied : QImage::Format_ARGB32;
        const std::shared_ptr<Canvas> canvas(new Canvas{wrap(scene.destination, format)});
        canvas->painter.setCompositionMode(*mode);
        const QImage source =
            wrap(premultiplied ? scene.premultiplied_source : scene.straight_source, format);
        std::function<void()> pass = [=] { canvas->painter.drawImage(0, 0, source); };
        if (task.family == Family::kRun)
            pass = [=] { canvas->painter.fillRect(canvas->image.rect(), qt_colour(kColour)); };
        contest.Add(Kind::kPeer, premultiplied ? "Qt premultiplied" : "Qt straight",
                    premultiplied ? Picture::kPremultiplied : Picture::kStraight, std::move(pass),
                    premultiplied ? scene.RestorePremultiplied() : scene.RestoreStraight());
    }
}

void add_qt(Contest& contest, Resampling& task) {
    const auto& m = task.to_source;  // Qt's matrices are transposed, and map the other way.
    const QTransform transform = QTransform(m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]).inverted();
    for (const bool premultiplied : {true, false}) {
        const auto format = premultiplied ? QImage::Format_ARGB32_Premultiplied : QImage::Format_ARGB32;
        const std::shared_ptr<Canvas> canvas(new Canvas{wrap(task.destination, format)});
        canvas->painter.setCompositionMode(QPainter::CompositionMode_Source);
        canvas->painter.setRenderHint(QPainter::SmoothPixmapTransform, task.is_bilinear);
        canvas->painter.setTransform(transform);
        const QImage source = wrap(premultiplied ? task.premultiplied_source : task.straight_source, format);
        contest.Add(Kind::kPeer, premultiplied ? "Qt premultiplied" : "Qt straight",
                    premultiplied ? Picture::kPremultiplied : Picture::kStraight,
                    [=] { canvas->painter.drawImage(0, 0, source); });
    }
}

namespace {

QRect qt_rect(const KSRect<long>& box) {
    return QRect(QPoint(static_cast<int>(box.left), static_cast<int>(box.top)),
                 QPoint(static_cast<int>(box.right), static_cast<int>(box.bottom)));
}

template <class Shape> std::function<void()> boxes_pass(const Drawing& task, Shape shape) {
    std::vector<QRect> boxes;
    std::transform(task.boxes.begin(), task.boxes.end(), std::back_inserter(boxes), qt_rect);
    return [=] {
        for (const QRect& box : boxes)
            shape(box);
    };
}

std::function<void()> polygons_pass(const Drawing& task, QPainter& painter) {
    std::vector<QPolygon> polygons;
    for (const Drawing::Polygon& polygon : task.polygons) {
        polygons.emplace_back();
        for (const KSPoint<long>& point : polygon)
            polygons.back() << QPoint(static_cast<int>(point.x), static_cast<int>(point.y));
    }
    return [=, &painter] {
        for (const QPolygon& polygon : polygons)
            painter.drawConvexPolygon(polygon);
    };
}

std::function<void()> drawing_pass(const Drawing& task, QPainter& painter) {
    const QColor colour = qt_colour(task.colour);
    const bool strokes = task.kind == Drawing::Kind::kLines || task.kind == Drawing::Kind::kOutlinedEllipses;
    painter.setPen(strokes ? QPen(colour, 0) : QPen(Qt::NoPen));
    painter.setBrush(strokes ? QBrush(Qt::NoBrush) : QBrush(colour));
    switch (task.kind) {
    case Drawing::Kind::kRectangles:
        return boxes_pass(task, [&painter, colour](const QRect& box) { painter.fillRect(box, colour); });
    case Drawing::Kind::kLines:
        return boxes_pass(task, [&painter](const QRect& box) {
            painter.drawLine(QPoint(box.left(), box.top()), QPoint(box.right(), box.bottom()));
        });
    case Drawing::Kind::kPatterns: {
        Image tile = pattern_tile(task);
        const QBrush brush(wrap(tile, QImage::Format_ARGB32_Premultiplied).copy());
        return boxes_pass(task, [&painter, brush](const QRect& box) { painter.fillRect(box, brush); });
    }
    case Drawing::Kind::kPolygons:
        return polygons_pass(task, painter);
    default:
        return boxes_pass(task, [&painter](const QRect& box) { painter.drawEllipse(box); });
    }
}

}  // namespace

void add_qt(Contest& contest, const Drawing& task) {
    for (const bool premultiplied : {true, false}) {
        const auto format = premultiplied ? QImage::Format_ARGB32_Premultiplied : QImage::Format_ARGB32;
        const std::shared_ptr<Canvas> canvas(new Canvas{wrap(task.scene->destination, format)});
        contest.Add(
            Kind::kPeer, premultiplied ? "Qt premultiplied" : "Qt straight",
            premultiplied ? Picture::kPremultiplied : Picture::kStraight,
            [canvas, pass = drawing_pass(task, canvas->painter)] { pass(); },
            premultiplied ? task.scene->RestorePremultiplied() : task.scene->RestoreStraight());
    }
}
