// A host in small: reads one film picture by picture and prints the time and a checksum of each.
// Not here: judging what that was (tst_kest_reader.cpp).
#include "engine/mpv/kest_host.h"

#include <QCoreApplication>
#include <QCryptographicHash>

#include <cstdio>

namespace {

QByteArray checksum(const KestPicture &picture)
{
    QCryptographicHash hash(QCryptographicHash::Md5);
    for (int y = 0; y < picture.height; ++y)
        hash.addData(QByteArray::fromRawData(reinterpret_cast<const char *>(picture.pixels)
                                                 + y * picture.stride,
                                             picture.width * 4));
    return hash.result().toHex();
}

int read(void *reader)
{
    KestPicture picture = {};
    int code = KestReaderNext(reader, &picture);
    for (; code == KestOk; code = KestReaderNext(reader, &picture)) {
        std::printf("%lld %s\n", picture.time, checksum(picture).constData());
        std::fflush(stdout);
    }
    return code;
}

}  // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    void *const engine = KestOpen("null");
    void *reader = nullptr;
    KestAddFile(engine, 1, argv[1]);
    KestReaderOpen(engine, 1, &reader);
    const int code = read(reader);
    KestReaderClose(reader);
    KestClose(engine);
    return code == KestAtEnd ? 0 : 1;
}
