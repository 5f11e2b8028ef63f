// Records of the database's tables: layers, line types, text styles, registered applications, blocks, layouts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dwg/kit/OdDbEntita.h"

namespace tessaro {

struct OdDbRecord {
    std::string name;   // UTF-8
    OdDbHandle handle = 0;
    bool erased = false;
};

struct OdDbLayerTableRecord : OdDbRecord {
    OdCmColor color;
    OdDbObjectId linetype;
    std::int16_t lineWeight = kLnWtByLwDefault;
    bool isOff = false, isFrozen = false, isLocked = false, isPlottable = true;
};

struct OdDbLinetypeTableRecord : OdDbRecord {
    std::string comments;
    double patternLength = 0;
    std::vector<double> dashes;   // drawing units: positive a dash, negative a gap, 0 a dot
    void setNumDashes(std::size_t n) { dashes.assign(n, 0); }
    void setPatternLength(double l) { patternLength = l; }
    void setDashLengthAt(std::size_t i, double l) { dashes[i] = l; }
};

struct OdDbTextStyleTableRecord : OdDbRecord {
    std::string fileName = "txt", bigFontFileName, typeface;
    double textSize = 0, xScale = 1, obliquingAngle = 0, priorSize = 0.2;
    bool isVertical = false, isShapeFile = false, isBackwards = false, isUpsideDown = false;
};

struct OdDbRegAppTableRecord : OdDbRecord {};

struct OdDbBlockTableRecord : OdDbRecord {
    OdGePoint3d origin;
    bool isAnonymous = false, isXref = false, hasAttributes = false;
    std::string pathName;   // of an external reference
    OdDbObjectId layout;    // of *Model_Space and the paper spaces
    OdDbHandle handleBlock = 0, handleEndBlk = 0;
    std::vector<OdDbEntityPtr> entita;
    // Behind the last one; the block owns it.
    OdDbEntity& appendOdDbEntity(OdDbEntityPtr e) {
        entita.push_back(std::move(e));
        return *entita.back();
    }
};

struct OdDbLayout : OdDbRecord {
    std::int32_t tabOrder = 0;
    OdDbObjectId blockTableRecord;
};

// A table whose records are found by name, whatever the case of its ASCII letters. The first of two equal names wins.
template <class T>
struct OdDbTabella {
    OdDbHandle handle = 0;
    std::vector<T> record;

    // A new record, whatever its name.
    OdDbObjectId add(T r) {
        const std::string chiave = maiuscolo(r.name);
        record.push_back(std::move(r));
        const OdDbObjectId id{static_cast<std::uint32_t>(record.size())};
        perNome.emplace(chiave, id);
        return id;
    }
    // The first record of the name; null when there is none.
    [[nodiscard]] OdDbObjectId getAt(std::string_view nome) const {
        const auto i = perNome.find(maiuscolo(nome));
        return i == perNome.end() ? OdDbObjectId{} : i->second;
    }
    // The record of a name, made anew when there is none.
    OdDbObjectId getOrAdd(std::string_view nome) {
        OdDbObjectId id = getAt(nome);
        if (!id.isNull()) return id;
        T r;
        r.name = nome;
        return add(std::move(r));
    }
    T& operator[](OdDbObjectId id) { return record[id.n - 1]; }
    const T& operator[](OdDbObjectId id) const { return record[id.n - 1]; }

    // Its ASCII letters alone: other bytes may be part of UTF-8.
    static std::string maiuscolo(std::string_view s) {
        std::string m(s);
        for (char& c : m)
            if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
        return m;
    }

private:
    std::unordered_map<std::string, OdDbObjectId> perNome;
};

}   // namespace tessaro
