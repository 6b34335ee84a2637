// Offers a text on the clipboard as a spreadsheet program does, plain, as HTML and as CSV, until it
// is ended:
//   orvane_offer_clipboard TEXT HTML CSV READY
// The first three are files that hold the forms; the last one is written when they are offered.
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

namespace {

QByteArray Bytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() != 5) return 2;
  auto offered = std::make_unique<QMimeData>();
  offered->setText(QString::fromUtf8(Bytes(arguments[1])));
  offered->setHtml(QString::fromUtf8(Bytes(arguments[2])));
  offered->setData("text/csv", Bytes(arguments[3]));
  QGuiApplication::clipboard()->setMimeData(offered.release());  // which keeps it from here on
  QFile ready(arguments[4]);
  if (!ready.open(QIODevice::WriteOnly) || ready.write("offered\n") < 0) return 1;
  ready.close();
  return QGuiApplication::exec();
}
