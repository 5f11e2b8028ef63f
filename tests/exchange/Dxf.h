// Reading and writing DXF in tests: a drawing from lines, a file from a drawing, and what must hold of any records.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "exchange/DXF.h"
#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/Unita.h"
#include "support/Avvisi.h"
#include "support/FileProva.h"
#include "support/Foglio.h"
#include "text/FileDati.h"

namespace prova {

// A sheet on which a real unit is a sheet unit and Y runs from 1000 down.
inline void foglioDxf(std::int32_t capacity = 5000) {
    fogliovuoto(capacity);
    rappvid = 1;
    YFDecimi = 1000;
}

// Group codes and values parted by blanks or commas: "0 LINE,8 0,10 5".
inline std::string gruppi(std::string_view s) {
    std::string r;
    while (!s.empty()) {
        const auto fine = s.find(',');
        const std::string_view voce = s.substr(0, fine);
        const auto bianco = voce.find(' ');
        r += std::string(voce.substr(0, bianco)) + "\n" + std::string(voce.substr(bianco + 1)) + "\n";
        s.remove_prefix(fine == std::string_view::npos ? s.size() : fine + 1);
    }
    return r;
}

inline std::string sezione(std::string_view nome, const std::string& contenuto) {
    return gruppi("0 SECTION,2 " + std::string(nome)) + contenuto + gruppi("0 ENDSEC");
}

inline std::string entita(std::string_view s) { return sezione("ENTITIES", gruppi(s)) + gruppi("0 EOF"); }

inline std::string layer(std::initializer_list<std::pair<const char*, int>> nomi) {
    std::string s = gruppi("0 TABLE,2 LAYER,70 9");
    for (const auto& [nome, colore] : nomi)
        s += gruppi(std::string("0 LAYER,2 ") + nome + ",62 " + std::to_string(colore) + ",6 HIDDEN");
    return sezione("TABLES", s + gruppi("0 ENDTAB"));
}

inline void leggiDxf(const std::string& testo) {
    const FileProva f(testo);
    LeggiDXF();
}

inline std::string resoconto() { return avvisi.empty() ? std::string() : avvisi.back().testo; }

// Whatever the file was, its records are records.
inline void controllaRecord() {
    std::int32_t testa = 0, dopo = 3;
    ASSERT_LE(indElem, maxElementi);
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const elemento& e = Elem(i);
        ASSERT_TRUE(e.lucido >= 0 && e.lucido <= 99) << "record " << i;
        if (e.tipo == tVertice) {
            ASSERT_LT(i, dopo) << "vertex " << i << " without a head";
            ASSERT_EQ(i - e.vert.distanzaTesta, testa);
            continue;
        }
        ASSERT_GE(i, dopo) << "record " << i << " inside a polyline";
        const auto colore = [&]() -> std::int16_t {
            switch (e.tipo) {
            case tSegmento: return e.segm.colore;
            case tMarker: return e.mark.colore;
            case tPoligono: return e.poli.colore;
            case tTesto: return e.test.colore;
            case tCerchio: return e.cerc.colore;
            case tArco: return e.arco.colore;
            default: return 0;
            }
        }();
        ASSERT_TRUE(colore >= 1 && colore <= maxColori) << "record " << i << " of type " << int{e.tipo};
        if (e.tipo == tPoligono) {
            testa = i;
            ASSERT_GE(e.poli.numVertici, 0);
            dopo = i + e.poli.numVertici + 1;
        }
        if (e.tipo == tTesto) { ASSERT_LE(e.test.testo[0], 40); }
    }
    ASSERT_LE(dopo, indElem + 1);
}

}   // namespace prova
