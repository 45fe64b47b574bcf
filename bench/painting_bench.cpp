/// What an edit costs until it is seen, in a real window on the offscreen platform: the picture of the largest
/// view shows through a container of 800 x 600 pixels.
#include "probes.h"

#include "shell/shell.h"

#include <QApplication>
#include <QImage>
#include <QPaintEvent>
#include <QPainter>

#include <cstring>
#include <string>
#include <vector>

namespace lumrake::bench {
namespace {

constexpr QSize kExposure = Editor::kExposure;
constexpr int kZooms[] = {2, 3, 4, 5}; // the indices of 2:1 to 16:1

/// A pixel written, the whole view drawn, the whole exposure painted.
void DrawEvent(benchmark::State& state, int zoom) {
    Editor& editor = EditorOf(state, zoom);
    std::int16_t value = 0;
    for (auto _ : state) {
        value ^= 1;
        editor.probe.WritePixel(100, 100, value);
        editor.form.ShowMem();
        editor.probe.Picture().repaint();
    }
}

/// As many bytes as the exposure has on the screen, out of a picture in 32-bit colours.
void CopyExposure(benchmark::State& state) {
    const auto bytes = static_cast<std::size_t>(kExposure.width() * kExposure.height()) * 4;
    const std::vector<std::uint8_t> from = Noise(bytes);
    std::vector<std::uint8_t> to(bytes);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), bytes);
        benchmark::ClobberMemory();
    }
}

/// A widget that lets the toolkit scale a one-bit picture of the view.
class ToolkitView : public QWidget {
  public:
    explicit ToolkitView(int factor) : factor_(factor) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        image_.setColorTable({0xffffffff, 0xff000000});
        const std::vector<std::uint8_t> noise = Noise(512);
        for (int row = 0; row < image_.height(); ++row) {
            std::memcpy(image_.scanLine(row), noise.data(), noise.size());
        }
        resize(kExposure);
        show();
        QCoreApplication::processEvents();
    }

    void Draw() {
        image_.setPixel(3, 3, static_cast<uint>(image_.pixelIndex(3, 3)) ^ 1U);
        repaint();
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        const QRect exposed = event->rect();
        QPainter painter(this);
        painter.drawImage(exposed, image_, QRect(exposed.topLeft() / factor_, exposed.size() / factor_));
    }

  private:
    QImage image_{4096, 512, QImage::Format_Mono};
    int factor_;
};

void ToolkitDraws(benchmark::State& state, int factor) {
    ToolkitView view(factor);
    for (auto _ : state) {
        view.Draw();
    }
}

/// A mouse move that sets or clears one pixel at 4:1, and the painting that it asks for.
void StrokePixel(benchmark::State& state) {
    Editor& editor = EditorOf(state, 3);
    iCurrentTool = kToolDraw;
    int at = 0;
    for (auto _ : state) {
        at = (at + 1) & 511;
        editor.probe.Move(1 + (at & 1), static_cast<float>(at), static_cast<float>(at));
        QCoreApplication::sendPostedEvents();
    }
}

/// A widget of the same size, in the same place, whose painting begins and ends.
class EmptyView : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override { QPainter painter(this); }
};

void StrokeOfNothing(benchmark::State& state) {
    QWidget window;
    window.resize(kExposure);
    EmptyView view(&window);
    view.setAttribute(Qt::WA_OpaquePaintEvent);
    view.resize(4 * 4096, 4 * 512);
    window.show();
    QCoreApplication::processEvents();
    int at = 0;
    for (auto _ : state) {
        at = (at + 1) & 511;
        view.update(at / 4 * 4, at / 4 * 4, 4, 4);
        QCoreApplication::sendPostedEvents();
    }
}

void PainterOnImage(benchmark::State& state) {
    QImage image(kExposure, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        painter.end();
    }
}

const bool kRegistered = [] {
    Add("Draw/memcpy", CopyExposure);
    for (const int zoom : kZooms) {
        const int factor = 1 << (zoom - 1);
        const std::string name = std::to_string(factor);
        Add("Draw/" + name, [zoom](benchmark::State& state) { DrawEvent(state, zoom); });
        Add("Draw/toolkit_" + name, [factor](benchmark::State& state) { ToolkitDraws(state, factor); });
    }
    Add("Stroke/pixel", StrokePixel);
    Add("Stroke/empty", StrokeOfNothing);
    Add("Stroke/painter_on_image", PainterOnImage);
    return true;
}();

} // namespace
} // namespace lumrake::bench
