// SPDX-License-Identifier: MIT
// tolvane-gallery [PICTURE]: shows the gallery in a window, or saves it as a picture.
// tolvane-gallery --branding FILE [PICTURE]: the same with the contrasts of a branding. It fails if
// one of them is too low.
#include <tolvane/views.h>

#include <QtCore/QBuffer>
#include <QtCore/QCommandLineParser>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickView>

#include <cstdio>

namespace {

QImage sample(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, size.width(), size.height());
    sky.setColorAt(0, QColor(0x2f, 0x6f, 0xed));
    sky.setColorAt(1, QColor(0xf2, 0x8c, 0x38));
    painter.fillRect(image.rect(), sky);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 6));
    painter.drawEllipse(image.rect().center(), size.height() / 3, size.height() / 3);
    painter.drawLine(0, 0, size.width(), size.height());
    painter.setPen(QPen(QColor(0x14, 0x1e, 0x46), 8));
    painter.drawRect(image.rect().adjusted(4, 4, -5, -5));
    return image;
}

QImage stripes()
{
    QImage image(1500, 1500, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int angle = 0; angle < 360; angle += 2) {
        painter.resetTransform();
        painter.translate(750, 750);
        painter.rotate(angle);
        painter.fillRect(0, -2, 1100, 5, Qt::black);
    }
    return image;
}

/// Responds to each request with a JPEG, except for "/silent", which gets no response.
class PictureServer : public QTcpServer
{
public:
    PictureServer()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, [this] {
            QTcpSocket *socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, [socket] {
                if (socket->readAll().startsWith("GET /silent"))
                    return;
                QByteArray bytes;
                QBuffer buffer(&bytes);
                sample({1200, 800}).save(&buffer, "jpeg");
                socket->write("HTTP/1.1 200 OK\r\nContent-Type: image/jpeg\r\nContent-Length: " +
                              QByteArray::number(bytes.size()) + "\r\n\r\n" + bytes);
            });
        });
    }
    QUrl url(const QString &path) const
    {
        return QStringLiteral("http://127.0.0.1:%1/%2").arg(serverPort()).arg(path);
    }
};

void setDarkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x16, 0x18, 0x1d));
    palette.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(palette);
}

/// Shows the pictures and icons.
void showGallery(QQuickView &view, const PictureServer &server)
{
    view.setInitialProperties(
        {{QStringLiteral("wide"), sample({600, 400})},
         {QStringLiteral("tall"), sample({300, 500})},
         {QStringLiteral("detailed"), stripes()},
         {QStringLiteral("pictureUrl"), server.url(QStringLiteral("photo"))},
         {QStringLiteral("silentUrl"), server.url(QStringLiteral("silent"))}});
    view.setSource(QUrl(QStringLiteral("qrc:/Gallery.qml")));
}

/// Shows the contrasts of the branding in a file, and prints those that are too low. Returns
/// whether all are high enough.
bool showContrasts(QQuickView &view, const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
        return false;
    }
    const QVariantMap branding = QJsonDocument::fromJson(file.readAll()).object().toVariantMap();
    view.setInitialProperties({{QStringLiteral("branding"), branding}});
    view.setSource(QUrl(QStringLiteral("qrc:/Contrast.qml")));
    if (view.status() != QQuickView::Ready)
        return false;
    const QStringList warnings = view.rootObject()->property("warnings").toStringList();
    for (const QString &warning : warnings)
        std::fprintf(stderr, "%s\n", qPrintable(warning));
    return warnings.isEmpty();
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("tolvane-gallery"));
    QCommandLineParser parser;
    const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("Uses a dark palette."));
    const QCommandLineOption branding(QStringLiteral("branding"),
                                      QStringLiteral("Shows the contrasts of this branding."),
                                      QStringLiteral("file"));
    parser.addOptions({dark, branding});
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("picture"),
                                 QStringLiteral("The file to save the gallery in."),
                                 QStringLiteral("[picture]"));
    parser.process(app);
    const QStringList files = parser.positionalArguments();
    if (parser.isSet(dark))
        setDarkPalette();

    const PictureServer server;
    QQuickView view;
    bool hasWarnings = false;
    QObject::connect(view.engine(), &QQmlEngine::warnings, [&] { hasWarnings = true; });
    bool isEnough = true;
    if (parser.isSet(branding))
        isEnough = showContrasts(view, parser.value(branding));
    else
        showGallery(view, server);
    view.show();
    if (!files.isEmpty()) {
        QTimer::singleShot(1500, &view, [&] {
            const bool isSaved = view.grabWindow().save(files.constFirst());
            QGuiApplication::exit(isSaved && isEnough && !hasWarnings ? 0 : 1);
        });
    }
    return QGuiApplication::exec();
}
