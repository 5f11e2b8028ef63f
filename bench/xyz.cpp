// A point list of a million rows into markers and back: reading against a loop that only walks the same bytes in
// memory, writing against one write of the same bytes. Best of several turns each; the turns alternate.
#include <random>

#include "exchange/FormatoXYZ.h"
#include "exchange/XYZ.h"
#include "Misure.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"

namespace {

using namespace misure;

constexpr int quante = 1'000'000;
constexpr int volte = 9;

// East, north and height of a survey in a national grid, to the millimetre. In each layout a row is the same values.
std::string elenco(char fra) {
    std::mt19937 caso(20260101);
    std::uniform_real_distribution<double> est(1'684'000, 1'694'000), nord(4'990'000, 4'998'000), quota(-5, 2500);
    std::string s;
    char testo[80];
    for (int i = 0; i < quante; ++i) {
        const int n =
            std::snprintf(testo, sizeof testo, "%.3f%c%.3f%c%.3f", est(caso), fra, nord(caso), fra, quota(caso));
        if (i != 0) s += '\r';
        s.append(testo, static_cast<std::size_t>(n));
    }
    return s;
}

void leggi(const std::string& file) {
    AzzeraArchivio();
    apri(file);
    LeggiXYZ();
    FSClose(RefNum);
    if (uscita != 0 || indElem != quante + 2) fallito("the reading");
}

void misura(std::int16_t tipo, const char* letto, const char* scritto) {
    TipoForm = tipo;
    DatoP = {colonnaX, colonnaY, colonnaZ, colonnaNessuna};
    const FileBreve dentro("tessaro-bench-in.xyz"), fuori("tessaro-bench-out.xyz"), grezzo("tessaro-bench-out.raw");
    const std::string byte = elenco(tipo == rigaPerPunto ? '\t' : '\r');
    dentro.riempi(byte);
    std::vector<double> lettura, passo, scrittura, colpo;
    volatile std::uint64_t somma = 0;
    for (int i = 0; i < volte; ++i) {
        lettura.push_back(millisecondi([&] { leggi(dentro.percorso); }));
        passo.push_back(millisecondi([&] { somma = passeggia(byte); }));
    }
    scriviFile(fuori.percorso, ScriviXYZ);
    const std::string scritti = contenuto(fuori.percorso);
    for (int i = 0; i < volte; ++i) {
        scrittura.push_back(millisecondi([&] { scriviFile(fuori.percorso, ScriviXYZ); }));
        colpo.push_back(millisecondi([&] { scriviInUnColpo(grezzo.percorso, scritti); }));
    }
    std::printf("%d rows, %.0f MB read, %.0f MB written\n", quante, static_cast<double>(byte.size()) / 1e6,
                static_cast<double>(scritti.size()) / 1e6);
    riga(letto, lettura, "byte walk", passo, 6);
    riga(scritto, scrittura, "plain write", colpo, 15);
}

}   // namespace

int main() {
    AzzeraStato();
    noWindow = 0;
    rappvid = 1;
    if (!AllocaElementi(quante + 10)) fallito("the store");
    misura(rigaPerPunto, "XYZ rows read", "XYZ rows written");
    misura(rigaPerValore, "XYZ values read", "XYZ values written");
    return 0;
}
