// The implementations of two header-only libraries, for which our warnings are
// not meant.
#define STB_TRUETYPE_IMPLEMENTATION
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>
#include <stb/stb_truetype.h>
