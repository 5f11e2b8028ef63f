// Pages without a printer: the drawing at its true size on paper, as a PDF file.
#pragma once

namespace tessaro {

// The whole sheet on one page of its own size, into the file that is asked for. What is wrong is shown.
void StampaFoglio();

}   // namespace tessaro
