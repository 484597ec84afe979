// Included ahead of every source of the core: a Qt header that is reached from one stops the build.
#pragma GCC poison QObject QString QWidget QPainter QT_VERSION QT_BEGIN_NAMESPACE
