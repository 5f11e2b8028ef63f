// Mnemonics of menu items: a letter each, chosen so that the items of one menu do not share it. Items are translated and
// renamed while the program runs, so the letters are given when a menu is about to show.
#include <QAction>
#include <QMenu>
#include <QSet>

#include "platform/qt/Menu.h"

namespace tessaro {

namespace {

// Where the letters of an item may stand, the best first: at the beginning of a word, then anywhere.
QList<qsizetype> posti(const QString& s) {
    QList<qsizetype> inizi, altri;
    for (qsizetype i = 0; i < s.size() && s.at(i) != QLatin1Char('\t'); ++i) {
        if (!s.at(i).isLetterOrNumber()) continue;
        (i == 0 || !s.at(i - 1).isLetterOrNumber() ? inizi : altri) << i;
    }
    return inizi + altri;
}

QString senza(const QString& s) {
    QString r = s;
    r.replace(QStringLiteral("&&"), QString(QChar(1)));
    r.remove(QLatin1Char('&'));
    return r.replace(QChar(1), QStringLiteral("&&"));
}

}   // namespace

void daiMnemonici(QMenu& q) {
    QSet<QChar> presi;
    for (QAction* a : q.actions()) {
        if (a->isSeparator() || a->text().isEmpty()) continue;
        QString s = senza(a->text());
        for (const qsizetype i : posti(s)) {
            const QChar lettera = s.at(i).toLower();
            if (presi.contains(lettera)) continue;
            presi.insert(lettera);
            s.insert(i, QLatin1Char('&'));
            break;
        }
        if (s != a->text()) a->setText(s);
    }
}

}   // namespace tessaro
