// Whether a picture of the screen is "light" or "dark" in the mean.
#include <QImage>
#include <iostream>

int main(int argc, char** argv) {
  const QImage picture(argc > 1 ? argv[1] : "");
  if (picture.isNull()) return 1;
  qint64 sum = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) sum += qGray(picture.pixel(x, y));
  }
  const qint64 mean = sum / (qint64{picture.width()} * picture.height());
  std::cout << (mean < 128 ? "dark" : "light") << "\n";
  return 0;
}
