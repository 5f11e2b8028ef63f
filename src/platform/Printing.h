// Printing: a session from its dialogs to its last page. Page formats and print settings are plain records, kept between
// operations in a flattened form. Lengths of paper are millimetres, page rectangles points of 1/72 inch.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/Quickdraw.h"

namespace tessaro {

using OSStatus = std::int32_t;               // 0 is good
inline constexpr OSStatus kPMCancel = 128;   // the person cancelled
inline constexpr OSStatus kPMNoDefaultPrinter = -30892;
inline constexpr OSStatus kPMInvalidPageRange = -30874;   // no page to print
inline constexpr OSStatus kPMGeneralError = -30870;       // no such printer, a file that cannot be written, a full disk

inline constexpr std::int32_t paginaFinale = 1 << 20;   // "to the last page"
inline constexpr std::int32_t finezzaPagina = 20;       // coordinates a point on a printed page: 1440 an inch

enum PMDestinationType : std::int16_t { kPMDestinationPrinter = 1, kPMDestinationFile = 2 };
inline constexpr std::string_view kPMDocumentFormatPDF = "application/pdf";
inline constexpr std::string_view kPMGraphicsContextQuickdraw = "com.apple.graphicscontext.quickdraw";

struct PMPageFormat {
    double larghezza = 210, altezza = 297;   // of the sheet of paper as it is printed on, mm; 10 to 20000
    double sinistra = 0, sopra = 0, destra = 0, sotto = 0;   // margins that stay white, mm
};
struct PMPrintSettings {
    std::int32_t copie = 1;
    std::int32_t prima = 1, ultima = paginaFinale;   // pages that are wanted, from 1
    std::string stampante;                           // UTF-8; empty: the default one
    PMDestinationType destinazione = kPMDestinationFile;
    std::string luogo;         // of a file, UTF-8
    bool conPerdita = false;   // pictures of many colours may be packed with loss, for a smaller file; of one print
};
struct PMRect {
    double top = 0, left = 0, bottom = 0, right = 0;
};

class SessioneStampa;
using PMPrintSession = SessioneStampa*;

OSStatus PMCreateSession(PMPrintSession& session);
OSStatus PMRelease(PMPrintSession session);   // also gives up a document that was not ended

// The default printer's paper, else A4 without margins.
OSStatus PMSessionDefaultPageFormat(PMPrintSession session, PMPageFormat& format);
// The default printer when there is one, else a PDF file whose place is still to be asked for.
OSStatus PMSessionDefaultPrintSettings(PMPrintSession session, PMPrintSettings& settings);

// A line a value. Unflattening takes what it understands and leaves the rest at its default; false when nothing was.
OSStatus PMFlattenPageFormat(const PMPageFormat& format, std::string& flat);
bool PMUnflattenPageFormat(std::string_view flat, PMPageFormat& format);
OSStatus PMFlattenPrintSettings(const PMPrintSettings& settings, std::string& flat);
bool PMUnflattenPrintSettings(std::string_view flat, PMPrintSettings& settings);

// Holds sizes and margins to what paper can be, and leaves at least 10 mm between the margins.
OSStatus PMSessionValidatePageFormat(PMPrintSession session, PMPageFormat& format, bool& changed);
OSStatus PMSessionValidatePrintSettings(PMPrintSession session, PMPrintSettings& settings, bool& changed);

// Where the settings name a printer: raises the margins to the rim that it cannot print on. False when that changed nothing.
bool PMSessionHoldToPrinter(PMPrintSession session, const PMPrintSettings& settings, PMPageFormat& format);

// A check box that the print dialog shows beside the toolkit's own choices.
struct SceltaStampa {
    std::string_view testo;   // Mac Roman
    std::uint8_t* accesa;     // 0 or 1, written when the dialog is accepted
};

// Both: 0, or kPMCancel with nothing changed.
OSStatus PMSessionPageSetupDialog(PMPrintSession session, PMPageFormat& format);
OSStatus PMSessionPrintDialog(PMPrintSession session, PMPrintSettings& settings, const PMPageFormat& format,
                              std::string_view lavoro, std::span<const SceltaStampa> scelte);

// The part of the paper between the margins, in points from its own top left; sides are whole points.
OSStatus PMGetAdjustedPageRect(const PMPageFormat& format, PMRect& rect);
OSStatus PMGetCopies(const PMPrintSettings& settings, std::int32_t& copies);
OSStatus PMGetFirstPage(const PMPrintSettings& settings, std::int32_t& first);
OSStatus PMGetLastPage(const PMPrintSettings& settings, std::int32_t& last);
OSStatus PMGetDestination(const PMPrintSettings& settings, PMDestinationType& type, std::string& format,
                          std::string& location);
OSStatus PMSessionSetDestination(PMPrintSession session, PMPrintSettings& settings, PMDestinationType type,
                                 std::string_view format, std::string_view location);

// A document of pages. Only between BeginPage and EndPage is there a port, whose portRect is the page rectangle in
// coordinates of finezzaPagina a point. A document with no page at all is given up.
OSStatus PMSessionBeginDocument(PMPrintSession session, const PMPrintSettings& settings, const PMPageFormat& format,
                                std::string_view jobMacRoman);
OSStatus PMSessionBeginPage(PMPrintSession session);
// `origine`: what of the drawing lies at the page's top left, in the port's coordinates; patterns are anchored to the
// drawing, so that they meet where pages are joined.
OSStatus PMSessionGetGraphicsContext(PMPrintSession session, std::string_view type, Point origine, GrafPtr& port);
OSStatus PMSessionEndPage(PMPrintSession session);
OSStatus PMSessionEndDocument(PMPrintSession session);   // kPMGeneralError when the file could not be written whole

}   // namespace tessaro
