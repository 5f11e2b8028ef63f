// The requests for files as a person meets them: their kinds, and the folder that each kind was last in.
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

#include "platform/Automation.h"
#include "platform/Files.h"
#include "platform/qt/Interno.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

// Answers the request that is open with `risposta`, which gets its window, until it is closed: the lists of files are filled
// behind its back, and a choice that comes too early is none.
class Risponde {
    QTimer orologio;

public:
    explicit Risponde(const std::function<void(QFileDialog&)>& risposta) {
        QObject::connect(&orologio, &QTimer::timeout, &orologio, [risposta] {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* f = qobject_cast<QFileDialog*>(w); f != nullptr && f->isVisible()) return risposta(*f);
        });
        orologio.start(10);
    }
};

// Two folders with a file of each name, and nobody but the test to answer.
struct Richieste : testing::Test {
    QTemporaryDir uno, due;
    void SetUp() override {
        SetCopione(nullptr);
        QFile::remove(QString::fromStdString(cartellaImpostazioni()) + QStringLiteral("/last-folder"));
    }
    void TearDown() override { ganciDellaSuite(); }
    static void leggi(std::int16_t tipi, const std::function<void(QFileDialog&)>& risposta) {
        FSSpec f;
        const Risponde r(risposta);
        (void)NavGetFile("prova", tipi, f);
    }
    // What the request for a kind offers, as it is cancelled.
    static QString cartella(std::int16_t tipi) {
        QString dove;
        leggi(tipi, [&dove](QFileDialog& f) {
            dove = f.directory().absolutePath();
            f.reject();
        });
        return dove;
    }
    static void scegli(std::int16_t tipi, const QString& percorso) {
        QFile f(percorso);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.close();
        leggi(tipi, [percorso](QFileDialog& d) {
            d.findChild<QLineEdit*>()->setText(percorso);   // as it is typed
            QMetaObject::invokeMethod(&d, "accept");
        });
    }
};

constexpr std::int16_t disegni = 300, immagini = 301, punti = 302, png = 311;

}   // namespace

TEST_F(Richieste, EachKindIsNamedWithItsOwnSuffixesBeforeAllFiles) {
    struct Caso {
        std::int16_t tipi;
        const char* suffisso;
        const char* altrui;
    };
    for (const Caso& c : {Caso{disegni, "*.ts3d", "*.png"}, Caso{immagini, "*.png", "*.ts3d"},
                          Caso{punti, "*.xyz", "*.png"}, Caso{303, "*.cxf", "*.dxf"}, Caso{304, "*.dxf", "*.cxf"},
                          Caso{320, "*.gpkg", "*.shp"}, Caso{330, "*.points", "*.png"}}) {
        QStringList nomi;
        leggi(c.tipi, [&nomi](QFileDialog& f) {
            nomi = f.nameFilters();
            f.reject();
        });
        ASSERT_GE(nomi.size(), 2) << c.tipi;
        EXPECT_TRUE(nomi.first().contains(QLatin1String(c.suffisso))) << nomi.first().toStdString();
        EXPECT_TRUE(nomi.first().contains(QString::fromLatin1(c.suffisso).toUpper()));
        EXPECT_FALSE(nomi.first().contains(QLatin1String(c.altrui))) << nomi.first().toStdString();
        EXPECT_FALSE(nomi.first().startsWith(QLatin1Char(' '))) << "a kind without a name";
        EXPECT_TRUE(nomi.last().endsWith(QLatin1String("(*)")));
    }
}

TEST_F(Richieste, EachKindOpensInTheFolderThatItWasLastIn) {
    scegli(immagini, uno.filePath(QStringLiteral("scan.png")));
    EXPECT_EQ(cartella(disegni), uno.path());   // a kind that has none yet opens where the last request was
    scegli(disegni, due.filePath(QStringLiteral("plan.ts3d")));
    EXPECT_EQ(cartella(immagini), uno.path());
    EXPECT_EQ(cartella(disegni), due.path());
    EXPECT_EQ(cartella(punti), due.path());
    // A save of a picture is the pictures' kind; one that is cancelled remembers nothing.
    FSSpec f;
    QString dove;
    {
        const Risponde r([&dove](QFileDialog& d) {
            dove = d.directory().absolutePath();
            d.setDirectory(QDir::tempPath());
            d.reject();
        });
        EXPECT_FALSE(NavPutFile("prova", "disegno.png", f, png));
    }
    EXPECT_EQ(dove, uno.path());
    EXPECT_EQ(cartella(immagini), uno.path());
    // A folder that is gone is passed over.
    ASSERT_TRUE(due.remove());
    EXPECT_EQ(cartella(disegni), QDir::homePath());
}
