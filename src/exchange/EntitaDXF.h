// Entities of a DXF file as elements. One reader runs over a whole section, or over the entities of one block.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "exchange/Resoconto.h"
#include "exchange/RigheDxf.h"
#include "exchange/TestoDxf.h"
#include "model/Elemento.h"

namespace tessaro {

// What a file's reading shares: its lines, its character set, and what is told at the end.
struct LetturaDXF {
    RigheDxf righe;
    AlfabetoDxf alfabeto;
    Resoconto resoconto;
};

// --- layers and blocks of the file in hand
void InizioTabelleDXF();                      // forgets them
void NuoviLayerDXF();                         // Layerdxf has changed
void ConosciBloccoDXF(std::int32_t numero);   // this block is complete: INSERT may find it
const std::vector<std::int32_t>& BlocchiDiNomeDXF(std::string_view nome);
void RimuoviBlocchiDXF();   // takes the records of all blocks out of the drawing; later records move down

class TLeggiEntitaDXF {
public:
    TLeggiEntitaDXF(LetturaDXF& l, bool nelBlocco) : lettura(l), inBlocco(nelBlocco) {}
    virtual ~TLeggiEntitaDXF() = default;
    TLeggiEntitaDXF(const TLeggiEntitaDXF&) = delete;
    TLeggiEntitaDXF& operator=(const TLeggiEntitaDXF&) = delete;

    void Leggi();   // to the end of the section, or until the reading is over

protected:
    virtual void Punto();
    virtual void Poligono();
    virtual void Traccia();
    virtual void Solido();
    virtual void Linea();
    virtual void Cerchio();
    virtual void Arco();
    virtual void DXFTesto();
    virtual void TrasfCoordInsert(std::int32_t blocco, double& x, double& y, double& z);
    virtual void Insert();

private:
    struct Operazione {
        std::string_view nome;
        void (TLeggiEntitaDXF::*leggi)();
    };
    static const Operazione operazioni[];

    void azzeraScratch();
    void entita(std::string_view nome);
    void saltaEntita();

    // --- groups of the entity in hand
    bool prossimo();   // the next group code into `gruppo`; false at group 0, which `fineEntita` tells, or at the end
    void saltaValore() { lettura.righe.riga(); }
    bool reale(f64& dove);
    bool reale(double& dove);
    bool colore(f16& dove);
    void parole(elemento::Testo& t, bool& codici, bool& tagliato);
    std::int16_t layer();   // CercaLayer of a group 8
    std::int16_t layerDi(const std::string& nome);
    // Groups 6, 8 and 62; false when the group is none of them.
    bool attributi(f16& dovePattern, f16& doveColore);

    // --- conversion to sheet units
    void posizione(double& x, double& y) const;   // outside blocks
    [[nodiscard]] double raggio(double r) const;

    struct Valori {
        double a = 0, b = 0, c = 0, d = 0, e = 0;
    };
    // Memorizza, with no area pattern, of a colour and pattern that may come from anywhere.
    void memorizza(Tipoelem tipo, const Valori& v, std::int16_t col, std::int16_t pat);
    static void ammessi(std::int16_t& col, std::int16_t& pat);

    // --- polylines
    struct Figura;
    void testaPoligono(Figura& f);
    void vertice(Figura& f);
    void aggiungiVertice(Figura& f, double x, double y, double z);

    // --- blocks
    struct Inserimento;
    void copiaBlocco(std::int32_t blocco, const Inserimento& ins);
    void trasforma(std::int32_t blocco, const Inserimento& ins, elemento& e);
    void specchiaArco(elemento& e) const;

    LetturaDXF& lettura;
    bool fine = false;         // of the section or block
    bool fineEntita = false;   // this entity is complete
    bool inBlocco;             // as they stand: no conversion to sheet units
    bool nomeLetto = false;    // the next entity's name stands in `sospeso`
    std::string sospeso;
    // Kept: one record for all kinds, never cleared between entities. What an entity does not tell it takes from its
    // place there, whoever wrote it last.
    elemento scratch{};
    std::uint32_t gruppo = 0;
    std::string rigaLayer;   // the last group 8, and what CercaLayer made of it: neighbours share their layer
    std::int16_t ultimoLayer = 0;
    bool layerNoto = false;
    std::unordered_map<std::string, std::int16_t> layerVisti;   // by their bytes in the file
    double scalaX = 1, scalaY = 1, scalaZ = 1;                  // of the INSERT in hand
    double insX = 0, insY = 0, insZ = 0;                        // its place
};

}   // namespace tessaro
