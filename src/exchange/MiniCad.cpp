// The single commands of the script, its head, and its file.
#include "exchange/MiniCad.h"

#include <algorithm>
#include <string>

#include "exchange/ApriScrittura.h"
#include "model/Colori.h"
#include "model/Cursore.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Windows.h"
#include "text/Conversione.h"
#include "text/FileDati.h"
#include "text/PasUtils.h"

namespace tessaro {

PStr255 stUniM("");
constexpr std::array<std::int16_t, 38> Retini_MC{2,  14, 3,  4,  70, 30, 26, 31, 60, 41, 22, 10, 8,
                                                 61, 64, 44, 52, 11, 45, 1,  7,  6,  55, 5,  18, 50,
                                                 19, 24, 48, 34, 62, 71, 29, 56, 9,  38, 21, 33};

namespace {

constexpr std::int16_t invitoMiniCad = 35;
constexpr std::int16_t polliciUnita = 4, piediUnita = 5;
constexpr std::array<const char*, 7> testiUnita{"mm", "cm", "m", "km", "\"", "'", "u"};

void riga(const std::string& s) { writelnDisco(PStr255(std::string_view(s))); }

std::string numero(const double& v) { return FormatReal(v, 1, 4).str(); }
std::string misura(const double& v) { return numero(v) + stUniM.str(); }

std::string comando(const char* nome, std::int32_t n) { return nome + std::string("(") + std::to_string(n) + ");"; }

std::string punto(const double& x, const double& y, const double& z, tipo_D d) {
    return misura(x) + "," + misura(y) + (d == tre_D ? "," + misura(z) : std::string());
}

}   // namespace

void MCPenSize(std::int16_t n) { riga(comando("PenSize", n == 1 ? 1 : n * 14)); }

void MCPenPat(std::int16_t n) {
    const bool noto = n >= 1 && n <= static_cast<std::int16_t>(Retini_MC.size());
    riga(comando("PenPat", Retini_MC[noto ? static_cast<std::size_t>(n - 1) : 0]));
}

void MCPenFore(std::int16_t c) {
    const bool noto = c >= 1 && c <= maxColori;
    const RGBColor rgb = noto ? arrColori[static_cast<std::size_t>(c - 1)].rgb : RGBColor{};
    riga("PenFore(" + std::to_string(rgb.red) + "," + std::to_string(rgb.green) + "," + std::to_string(rgb.blue)
         + ");");
}

void MCTextFont(std::int16_t n) { riga(comando("TextFont", n)); }
void MCTextSize(std::int16_t n) { riga(comando("TextSize", n)); }

void MCTextFace(std::uint8_t face) {
    static constexpr std::array<const char*, 5> stili{"BOLD", "ITALIC", "UNDERLINE", "OUTLINE", "SHADOW"};
    std::string nomi;
    for (std::size_t i = 0; i < stili.size(); ++i)
        if (BITTST(face, 1U << i)) nomi += stili[i];   // Kept: the names run together, without a comma
    riga("TextFace([");
    riga(nomi + "]);");
}

void MCTextOrigin(const double& x, const double& y) {
    riga("TextFlip(0);");
    riga("TextRotate(#0);");
    riga("TextOrigin(" + misura(x) + "," + misura(y) + ");");
}

// The text stands on a line of its own, so nothing in it needs a quote.
void MCDrawString(const PStr255& s) {
    riga("BeginText;");
    writelnDisco(s);
    riga("EndText;");
}

void MCPolyTo(const double& x, const double& y, const double& z, tipo_D d) { riga(punto(x, y, z, d) + ","); }

void MCFinePoly(const double& x, const double& y, const double& z, tipo_D d) {
    riga(punto(x, y, z, d));
    riga(");");
}

void ScriviGlobalCharacteristics() {
    constexpr decform formatoDec{0, 5};
    constexpr double pollice = 254.00508;   // tenths of a millimetre, by the survey foot
    const auto unita = static_cast<std::size_t>(std::clamp<std::int16_t>(UnitaMCorrente, 0, 6));
    stUniM = testiUnita[unita];
    PStr255 s;
    Num2Str(formatoDec, pollice / decimiUnita, s);
    const std::string u = stUniM.str();
    switch (unita) {
    case polliciUnita: riga("SetUnits(1000,1000,2,1.0,'" + u + "','in2');"); break;
    case piediUnita: riga("SetUnits(1000,1000,2," + s.str() + ",'" + u + "','sqr ft');"); break;
    default: riga("SetUnits(1000,1000,0," + s.str() + ",'" + u + "','" + u + "2');"); break;
    }
}

void ApriMiniCad(tipo_D d) {
    const std::string forma = d == tre_D ? "3D" : "2D";
    FSSpec file;
    ApriScrittura(invitoMiniCad, forma, forma + ".mcad", file);
}

Scritti ScriviObjectCreationCode(tipo_D d) {
    TScriviObjectMiniCad elementi;
    elementi.Scrivi(d);
    return elementi.conti;
}

void FaiMiniCad(tipo_D d) {
    ApriMiniCad(d);
    SetCursor(ClockCursor);
    if (!uscita) {
        ScriviGlobalCharacteristics();
        Scritti conti;
        if (!uscita) conti = ScriviObjectCreationCode(d);
        ChiudiScrittura();
        SetCursor(arrowCursor);
        if (!uscita) MostraScritti(conti, TestoScambio::nonNegliScript);
    }
    SetCursor(arrowCursor);
}

namespace {
const VoceStato righe[] = {voce<stUniM>("stUniM")};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
