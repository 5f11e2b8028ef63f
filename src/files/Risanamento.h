// Keeps records from a file harmless to all that walk the drawing: a polyline's count and its vertices' distances must
// lead to records that are what they say. Records pass by once, in order.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

class Risanamento {
public:
    explicit Risanamento(std::int32_t prima) : primo(prima) {}
    // Is it a record at all? False for a type that is none, a coordinate that is not finite, and a vertex whose head is
    // out: it stays out, and is counted. Fields that are out of range take what the old forms' take.
    // `testaAnche`: those of the record's head too; old forms bring theirs in order.
    [[nodiscard]] bool accetta(elemento& e, bool testaAnche = true);
    // Each record that was accepted once, by rising number, before the next is looked at.
    void passa(std::int32_t n, elemento& e) {
        if (e.tipo == tVertice)
            vertice(n, e);
        else if (testa != 0 || e.tipo == tPoligono || e.tipo == tTesto)
            altro(n, e);
    }
    void fine() { chiudi(); }   // behind the last record
    [[nodiscard]] std::int32_t risanati() const { return quanti; }
    [[nodiscard]] std::int32_t scartati() const { return fuori; }

private:
    void vertice(std::int32_t n, elemento& e);
    void altro(std::int32_t n, elemento& e);
    void chiudi();

    std::int32_t primo;       // records before it are no concern of this pass
    std::int32_t testa = 0;   // head whose vertices are passing
    std::int32_t visti = 0;   // vertices seen directly behind it
    std::int32_t quanti = 0;
    std::int32_t fuori = 0;
    bool testaFuori = false;   // the figure whose vertices pass has lost its head
};

}   // namespace tessaro
