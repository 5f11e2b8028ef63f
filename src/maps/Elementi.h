// Geometries of a file as elements of the drawing.
#pragma once

#include <string>
#include <vector>

#include "exchange/Resoconto.h"
#include "maps/Campi.h"
#include "maps/NomiLucidi.h"
#include "maps/SistemaRiferimento.h"

namespace tessaro {

class ElementiDaMappa {
public:
    ElementiDaMappa(const Gdal& gdal, Resoconto& r) : g(gdal), resoconto(r) {}

    FraSistemi* via = nullptr;   // from the layer's system to the drawing's; not ready: coordinates as they stand

    // The elements of one feature of a layer of that name (Mac Roman). What has no place or no meaning is counted.
    void aggiungi(gdal::Oggetto feature, const CampiLetti& campi, const std::string& strato);
    bool pieno = false;             // the store has no room for more
    std::int64_t coloriOltre = 0;   // elements whose colour found no place in the table
    LucidiPerNome lucidi;

private:
    struct Aspetto {   // of the feature in hand
        std::string genere, aref, testo;
        std::int16_t lucido = 0, colore = 1, spessore = 1, pattern = 1, area = 0, categoria = 1, insieme = 1, forma = 1;
        double quota = 0, angolo = 0, altezza = 0;
        int corpo = 0;
        bool conQuota = false;
    };
    void leggiAspetto(gdal::Oggetto f, const CampiLetti& campi, const std::string& strato);
    std::int16_t coloreDi(const std::string& esadecimale);
    void geometria(gdal::Oggetto geometria, int profondita);
    bool punti(gdal::Oggetto geometria, std::vector<puntot>& p);   // sheet units
    void punto(const puntot& p);
    void linea(const std::vector<puntot>& p, bool chiusa);
    bool curva(const std::vector<puntot>& p);
    void polilinea(const std::vector<puntot>& p);
    bool posto();
    void rifinisci(std::int32_t n);   // what Memorizza does not take

    const Gdal& g;
    Resoconto& resoconto;
    Aspetto a;
};

}   // namespace tessaro
