/* libsndfile reads MP3 by another library. The program only writes it, so here reading is what is not there. */
#include "sfconfig.h"

#include "mpeg.h"

int mpeg_decoder_init(SF_PRIVATE* psf) {
  (void)psf;
  return SFE_UNIMPLEMENTED;
}

int mpeg_decoder_get_bitrate_mode(SF_PRIVATE* psf) {
  (void)psf;
  return SF_BITRATE_MODE_CONSTANT;
}
