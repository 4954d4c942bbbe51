// A style library as a device installs it, for the loader's test.
#include <QStyle>
#include <QStyleFactory>

extern "C" Q_DECL_EXPORT QStyle *mrl_style_instantiate()
{
    QStyle *style = QStyleFactory::create(QStringLiteral("Fusion"));
    style->setObjectName(QStringLiteral("xp"));
    return style;
}
