// A map of vectors into the drawing: the file, its systems, its features, the report.
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "dialogs/Errori.h"
#include "display/Ridisegno.h"
#include "editing/Scelta.h"
#include "editing/SpostaXY.h"
#include "maps/Elementi.h"
#include "maps/Frasi.h"
#include "maps/Ingresso.h"
#include "maps/Mappe.h"
#include "maps/Prova.h"
#include "maps/SistemaGdal.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Carattere.h"
#include "model/Colori.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Lucidi.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Memory.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

// What the reading changes for its own use, as it was.
class Attuali {
    std::int16_t lucido = VisioneGraf.lucidoCorrente, corpo = gFontSize;

public:
    Attuali() = default;
    ~Attuali() {
        VisioneGraf.lucidoCorrente = lucido;
        gFontSize = corpo;
    }
    Attuali(const Attuali&) = delete;
    Attuali& operator=(const Attuali&) = delete;
};

struct Strato {
    gdal::Oggetto layer = nullptr;
    std::string nome;      // Mac Roman
    std::string sistema;   // empty for none
};

class Lettura {
public:
    Lettura(const Gdal& gdal, gdal::Oggetto ds, const std::string& nomeFile) : g(gdal), nome(nomeFile) {
        constexpr int massimi = 1000;
        const int n = std::min(g.GDALDatasetGetLayerCount(ds), massimi);
        for (int i = 0; i < n; ++i) {
            const gdal::Oggetto l = g.GDALDatasetGetLayer(ds, i);
            if (l != nullptr) strati.push_back({l, Utf8ToMac(std::string(g.OGR_L_GetName(l)).substr(0, 80)), {}});
        }
    }

    bool prepara(bool senzaSistema) {
        gdal::Envelope tutto{HUGE_VAL, -HUGE_VAL, HUGE_VAL, -HUGE_VAL};
        for (Strato& s : strati) {
            if (!senzaSistema) s.sistema = DefinizioneDi(g, g.OGR_L_GetSpatialRef(s.layer));
            if (sistema.empty()) sistema = s.sistema;
        }
        for (const Strato& s : strati) {
            totale += std::max<std::int64_t>(g.OGR_L_GetFeatureCount(s.layer, 1), 0);
            gdal::Envelope e{};
            if (altroSistema(s) || g.OGR_L_GetExtent(s.layer, &e, 1) != 0) continue;
            tutto = {std::min(tutto.minX, e.minX), std::max(tutto.maxX, e.maxX), std::min(tutto.minY, e.minY),
                     std::max(tutto.maxY, e.maxY)};
        }
        return PreparaIngresso(sistema, tutto, nome, ingresso);
    }

    void leggi() {
        EseguiIngresso(ingresso);
        ElementiDaMappa elementi(g, resoconto);
        const LatoRimandato rimanda;
        for (const Strato& s : strati)
            if (!fermata && !elementi.pieno) strato(s, elementi);
        if (elementi.coloriOltre > 0) nota(Frase(FraseMappe::coloriOltre, ConMigliaia(elementi.coloriOltre)));
        if (elementi.lucidi.riuniti() > 0) nota(Frase(FraseMappe::lucidiUniti, ConMigliaia(elementi.lucidi.riuniti())));
    }

    void racconta(std::int32_t prima) {
        ElementiContati entrati;
        entrati.contaRecord(prima + 1);
        if (const std::string s = NotaTrasformati(ingresso); !s.empty()) nota(s);
        if (!perduti.empty()) nota(Frase(FraseMappe::attributiPersi, elencoPerduti()));
        if (fermata) nota(Frase(FraseMappe::fermata));
        if (!guasto.empty()) nota(Frase(FraseMappe::interrotta, guasto));
        resoconto.mostra(entrati, 0, false);
    }

private:
    void nota(const std::string& s) { resoconto.nota(s); }

    [[nodiscard]] bool altroSistema(const Strato& s) const { return !s.sistema.empty() && s.sistema != sistema; }

    void strato(const Strato& s, ElementiDaMappa& elementi) {
        constexpr std::int64_t ogni = 256;
        constexpr int guastoGrave = 3;
        FraSistemi altra;
        elementi.via = &ingresso.via;
        // A layer of another system than the file's first has a way of its own, or stays out.
        if (altroSistema(s)) {
            std::string motivo;
            const std::string& verso = SistemaDelDisegno().empty() ? sistema : SistemaDelDisegno();
            if (!altra.prepara(s.sistema, verso, motivo)) return resoconto.tralascia("LAYER");
            elementi.via = &altra;
        }
        CampiLetti campi(g, s.layer);
        g.OGR_L_ResetReading(s.layer);
        g.CPLErrorReset();
        while (!elementi.pieno) {
            const gdal::Oggetto f = g.OGR_L_GetNextFeature(s.layer);
            if (f == nullptr) break;
            elementi.aggiungi(f, campi, s.nome);
            campi.conta(f);
            g.OGR_F_Destroy(f);
            if (++letti % ogni != 0) continue;
            const double parte = static_cast<double>(letti) / static_cast<double>(std::max(totale, letti));
            fermata = !ProgressStep(parte) || escapePressed();
            if (fermata) break;
        }
        if (!fermata && !elementi.pieno && g.CPLGetLastErrorType() >= guastoGrave) guasto = DettoDaGdal();
        for (const CampiLetti::Altro& a : campi.altri())
            if (a.valori > 0) perduti.push_back(a);
    }

    [[nodiscard]] std::string elencoPerduti() {
        constexpr std::size_t mostrati = 8;
        std::stable_sort(perduti.begin(), perduti.end(),
                         [](const auto& a, const auto& b) { return a.valori > b.valori; });
        std::string s;
        for (std::size_t i = 0; i < std::min(perduti.size(), mostrati); ++i) {
            std::string n = Utf8ToMac(perduti[i].nome);
            for (char& c : n)
                if (static_cast<unsigned char>(c) < ' ' || c == '^') c = '?';
            s += (s.empty() ? "" : ", ") + n + " (" + ConMigliaia(perduti[i].valori) + ')';
        }
        if (perduti.size() > mostrati)
            s += ", " + Frase(FraseMappe::altriAttributi, std::to_string(perduti.size() - mostrati));
        return s;
    }

    const Gdal& g;
    std::string nome, sistema, guasto;
    std::vector<Strato> strati;
    std::vector<CampiLetti::Altro> perduti;
    Ingresso ingresso;
    Resoconto resoconto;
    std::int64_t totale = 0, letti = 0;
    bool fermata = false;
};

// A GeoJSON that names no system stands for longitude and latitude; one that was written here names none when the drawing
// did not.
bool senzaSistemaNostro(const FSSpec& file) {
    constexpr std::int32_t testa = 65536;
    std::int16_t ref = 0;
    std::string inizio(testa, '\0');
    std::int32_t letti = testa;
    if (FSpOpenDF(file, fsRdPerm, ref) != noErr) return false;
    FSRead(ref, letti, inizio.data());
    FSClose(ref);
    inizio.resize(static_cast<std::size_t>(letti));
    const auto ha = [&inizio](const char* parola) { return inizio.find(parola) != std::string::npos; };
    return ha("\"FeatureCollection\"") && ha("\"set_no\"") && !ha("\"crs\"");
}

// A text file is held in memory as a tree: one that this machine could not hold is not begun.
bool troppoGrande(const FSSpec& file) {
    constexpr std::int64_t perByte = 12;
    std::error_code e;
    const std::string suffisso = std::filesystem::path(file.percorso).extension().string();
    if (suffisso.size() > 1 && (suffisso[1] == 'j' || suffisso[1] == 'g') && suffisso != ".gpkg") {
        const auto lungo = std::filesystem::file_size(file.percorso, e);
        return !e && static_cast<std::int64_t>(lungo) > FreeMemory() / perByte;
    }
    return false;
}

}   // namespace

void LeggiMappa(const FSSpec& file) {
    const Gdal* const g = GdalOppureMessaggio();
    if (g == nullptr) return;
    const std::string dove = Utf8ToMac(file.percorso);
    if (troppoGrande(file)) return AvvisoMemoria();
    if (!ProvaFile(file, Prova::vettori)) return;
    const GdalMuto muto(*g);
    SetCursor(ClockCursor);
    const Aperto ds(*g, g->GDALOpenEx(file.percorso.c_str(), gdal::soloVettori, driverVettori, nullptr, nullptr));
    SetCursor(arrowCursor);
    if (ds == nullptr) return MostraGuasto({noErr, Frase(FraseMappe::nonApre, DettoDaGdal()), dove, -1});

    Lettura l(*g, ds, file.nome);
    if (!l.prepara(senzaSistemaNostro(file))) return;
    CominciaAggiunta();
    NessunaSelezione();
    const std::int32_t prima = indElem;
    {
        const Attuali attuali;
        SetCursor(ClockCursor);
        ProgressOpen(Frase(FraseMappe::avanzaLettura));
        l.leggi();
        ProgressClose();
    }
    RifaiMenuColori();
    if (!Elem(2).att.coordReali && indElem > prima) SpostaXY();
    if (indElem > prima) PoniAnnulla(aAggiunta);
    SetCursor(arrowCursor);
    InvalFinestra();
    l.racconta(prima);
}

}   // namespace tessaro
