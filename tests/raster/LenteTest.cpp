// What a lens bowed comes straight again, found in the pixels; and the settings file of the lenses.
#include <filesystem>

#include "Banco.h"
#include "files/Disco.h"
#include "platform/Automation.h"
#include "raster/Indietro.h"
#include "raster/Lenti.h"
#include "raster/ParamLenses.h"
#include "raster/Tela.h"

using namespace prova;

namespace {

using Lente = BancoRaster;

// Where the plane's point stands in a photograph by this lens: the law without its rounding, places from the centre.
Coppia fotografato(const Bombature& k, Coppia p, Coppia meta) {
    const auto legge = [](double a, double b, double c, double percento) {
        return b * (1 - percento * (1 - a * a / (c * c)) / 100);
    };
    return {legge(p.y, p.x, meta.y, p.x >= 0 ? k.destra : k.sinistra),
            legge(p.x, p.y, meta.x, p.y >= 0 ? k.basso : k.alto)};
}

// The other way: which point of the plane the photograph shows at q.
Coppia mostrato(const Bombature& k, Coppia q, Coppia meta) {
    Coppia p = q;
    for (int i = 0; i < 60; ++i) {
        const Coppia f = fotografato(k, p, meta);
        p = {p.x + 0.7 * (q.x - f.x), p.y + 0.7 * (q.y - f.y)};
    }
    return p;
}

// A pixel that tells its own place.
std::uint32_t segnato(double x, double y) {
    return static_cast<std::uint32_t>(std::lround(x)) << 12 | static_cast<std::uint32_t>(std::lround(y));
}

std::string impostazione() { return SettingsFolder() + "/ParamLenses"; }

TavolaLenti tavolaPiena() {
    TavolaLenti t = LentiPredefinite();
    t.presenti = maxLenti;
    for (std::size_t i = 0; i < maxLenti; ++i) {
        const auto v = static_cast<double>(i);
        t.lenti[i].valori = {-v, v / 3, 50 - v, v * 0.1};
        t.lenti[i].riservati = {v * 1e10, -v};
        PoniNomeLente(t.lenti[i], i % 2 == 0 ? "A name of twenty let" : std::string_view());
    }
    return t;
}

bool uguali(const TavolaLenti& a, const TavolaLenti& b) {
    if (a.presenti != b.presenti) return false;
    for (std::size_t i = 0; i < static_cast<std::size_t>(a.presenti); ++i)
        if (std::memcmp(&a.lenti[i].valori, &b.lenti[i].valori, sizeof(Bombature)) != 0
            || a.lenti[i].riservati != b.lenti[i].riservati || a.lenti[i].nome != b.lenti[i].nome)
            return false;
    return true;
}

}   // namespace

TEST_F(Lente, ThePhotographOfAPlaneComesBackWithinAPixel) {
    constexpr std::int32_t w = 900, h = 640;
    constexpr Coppia meta{w / 2, h / 2};
    const auto formato = FormatoPer(32, nullptr);
    for (const Bombature& k : {Bombature{5, 5, 5, 5}, Bombature{-6, -4, -5, -7}, Bombature{0, 9, -3, 12}}) {
        Tela foto, piana;
        ASSERT_TRUE(NuovaTela(foto, w, h, *formato, true) && NuovaTela(piana, w, h, *formato, true));
        const std::uint32_t fuori = segnato(4000, 4000);
        for (std::int32_t y = 0; y < h; ++y)
            for (std::int32_t x = 0; x < w; ++x) {
                const Coppia p = mostrato(k, {x - meta.x, y - meta.y}, meta);
                const double px = p.x + meta.x, py = p.y + meta.y;
                const bool dentro = px > -0.5 && px < w - 0.5 && py > -0.5 && py < h - 0.5;
                reinterpret_cast<std::uint32_t*>(foto.riga(y))[x] = dentro ? segnato(px, py) : fuori;
            }
        ASSERT_TRUE(PercorriIndietro(foto, piana, RichiestaLente(k, foto), [](double) { return true; }));
        std::int32_t trovati = 0, peggio = 0;
        for (std::int32_t y = 0; y < h; ++y)
            for (std::int32_t x = 0; x < w; ++x) {
                const std::uint32_t c = reinterpret_cast<const std::uint32_t*>(piana.riga(y))[x];
                if (c == fuori || c == 0xFFFFFFFFU) continue;   // the lens took it out of the frame
                ++trovati;
                peggio = std::max({peggio, std::abs(static_cast<std::int32_t>(c >> 12) - x),
                                   std::abs(static_cast<std::int32_t>(c & 0xFFF) - y)});
            }
        EXPECT_GT(trovati, w * h * 8 / 10);
        EXPECT_LE(peggio, 1) << k.sinistra << " " << k.destra << " " << k.alto << " " << k.basso;
    }
}

TEST_F(Lente, ItsSettingsFileComesBackWholeAndADamagedOneChangesNothing) {
    const TavolaLenti piena = tavolaPiena();
    ScriviParamLenses(piena);
    const std::string bytes = contenuto(impostazione());
    EXPECT_EQ(bytes.size(), 2U + 70U * maxLenti);
    TavolaLenti letta = LentiPredefinite();
    ASSERT_TRUE(LeggiParamLenses(letta));
    EXPECT_TRUE(uguali(letta, piena));

    const TavolaLenti prima = LentiPredefinite();
    for (const std::string& guasto :
         {std::string(), bytes.substr(0, 1), bytes.substr(0, 500), std::string(2, char{}) + bytes.substr(2),
          "\x7F\xFF" + bytes.substr(2), "\xFF\xFF" + bytes.substr(2)}) {
        metti(impostazione(), guasto);
        letta = prima;
        uscita = 0;
        EXPECT_FALSE(LeggiParamLenses(letta)) << guasto.size();
        EXPECT_TRUE(uguali(letta, prima));
    }
    // A percentage that no lens has is none, and a name is held to its slot.
    std::string strano = bytes;
    strano.replace(2, 8, "\x7F\xF8\0\0\0\0\0\0", 8);
    strano.replace(10, 8, "\x40\x49\x40\0\0\0\0\0", 8);   // 50.5
    strano[2 + 48] = '\x7F';
    metti(impostazione(), strano);
    uscita = 0;
    ASSERT_TRUE(LeggiParamLenses(letta));
    EXPECT_EQ(letta.lenti[0].valori.sinistra, 0);
    EXPECT_EQ(letta.lenti[0].valori.destra, 0);
    EXPECT_EQ(NomeLente(letta.lenti[0]).size(), static_cast<std::size_t>(maxNomeLente));
    std::filesystem::remove(impostazione());
}
