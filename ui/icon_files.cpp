// Writes the drawing of an icon in the sizes that desktops ask for, as NAME-SIZE.png, and all of
// them in one file for Windows, NAME.ico.
//   orvane_icon_files NAME.svg FOLDER
#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QtEndian>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <vector>

#include "ui/platform/icon_drawing.h"

namespace {

constexpr std::array Sizes = {16, 22, 24, 32, 48, 64, 128, 256};

QImage Painted(const orvane::IconDrawing& drawing, int size) {
  QImage image(size, size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  orvane::PaintIconDrawing(painter, QRectF(0, 0, size, size), drawing,
                           [](const QColor& color) { return color; });
  return image;
}

void AddNumber(QByteArray& bytes, quint32 number, int length) {
  for (int at = 0; at < length; ++at) bytes.append(static_cast<char>(number >> (8 * at) & 0xFF));
}

// An image as the icon files of Windows hold it: a bitmap's header that counts the mask's rows too,
// the pixels from the lowest row up, and a mask that hides none, since the pixels tell that.
QByteArray AsBitmap(const QImage& image) {
  const auto size = static_cast<quint32>(image.width());
  QByteArray bytes;
  AddNumber(bytes, 40, 4);
  AddNumber(bytes, size, 4);
  AddNumber(bytes, 2 * size, 4);
  AddNumber(bytes, 1, 2);   // planes
  AddNumber(bytes, 32, 2);  // bits a pixel
  bytes.append(24, '\0');   // not packed, no resolution, no table of colours
  for (int row = image.height() - 1; row >= 0; --row) {
    for (int column = 0; column < image.width(); ++column) {
      AddNumber(bytes, image.pixel(column, row), 4);
    }
  }
  const quint32 maskRow = (size + 31) / 32 * 4;
  bytes.append(static_cast<qsizetype>(maskRow * size), '\0');
  return bytes;
}

QByteArray AsPng(const QImage& image) {
  QBuffer buffer;
  if (!image.save(&buffer, "png")) std::exit(EXIT_FAILURE);
  return buffer.data();
}

// The largest is packed, as Windows expects of that size; some readers know bitmaps alone in the
// smaller ones.
QByteArray AsIconFile(const std::vector<QImage>& images) {
  constexpr int entryLength = 16;
  QByteArray head;
  QByteArray body;
  AddNumber(head, 0, 2);
  AddNumber(head, 1, 2);  // an icon, no cursor
  AddNumber(head, static_cast<quint32>(images.size()), 2);
  const qsizetype bodyAt = head.size() + entryLength * static_cast<qsizetype>(images.size());
  for (const QImage& image : images) {
    const QByteArray bytes = image.width() < 256 ? AsBitmap(image) : AsPng(image);
    AddNumber(head, static_cast<quint32>(image.width()) % 256, 1);  // 0 stands for 256
    AddNumber(head, static_cast<quint32>(image.height()) % 256, 1);
    AddNumber(head, 0, 2);  // no table of colours
    AddNumber(head, 1, 2);
    AddNumber(head, 32, 2);
    AddNumber(head, static_cast<quint32>(bytes.size()), 4);
    AddNumber(head, static_cast<quint32>(bodyAt + body.size()), 4);
    body += bytes;
  }
  return head + body;
}

bool Written(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

int Run(const QString& source, const QString& folder) {
  QFile file(source);
  if (!file.open(QIODevice::ReadOnly)) return EXIT_FAILURE;
  const orvane::IconDrawing drawing = orvane::ReadIconDrawing(file.readAll());
  const QString name = folder + "/" + QFileInfo(source).baseName();
  std::vector<QImage> images;
  for (const int size : Sizes) {
    images.push_back(Painted(drawing, size));
    if (!Written(name + "-" + QString::number(size) + ".png", AsPng(images.back()))) {
      return EXIT_FAILURE;
    }
  }
  return Written(name + ".ico", AsIconFile(images)) ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("Usage: orvane_icon_files NAME.svg FOLDER\n", stderr);
    return EXIT_FAILURE;
  }
  try {
    return Run(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", argv[1], error.what());
    return EXIT_FAILURE;
  }
}
