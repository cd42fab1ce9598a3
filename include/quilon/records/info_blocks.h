/**
 * Records of the information blocks ("$I") that QUIL_SEND_INFO_BLOCK asks for.
 * Each is named by the code that reads it. A slot that a code drops is not
 * written.
 */
#ifndef QUILON_RECORDS_INFO_BLOCKS_H_
#define QUILON_RECORDS_INFO_BLOCKS_H_

#include "quilon/records/layout.h"

/** QUIL_READ_INFO_43. */
typedef struct InfoBlock43 {
  int32_t numbers[9]; /**< The answer's numbers; the fifth and sixth are
                           dropped. */
} InfoBlock43;
QUILON_SIZE(InfoBlock43, 36);

/** QUIL_READ_INFO_53. */
typedef struct InfoBlock53 {
  char first_text[60]; /**< The answer's first text. */
  char texts[4][100];  /**< The texts behind it. */
  int32_t numbers[4];  /**< The numbers behind them. */
} InfoBlock53;
QUILON_SIZE(InfoBlock53, 476);
QUILON_OFFSET(InfoBlock53, texts, 60);
QUILON_OFFSET(InfoBlock53, numbers, 460);

/** QUIL_READ_INFO_54. */
typedef struct InfoBlock54 {
  int32_t numbers1[3];  /**< The answer's first numbers. */
  char texts1[2][30];   /**< The texts behind them. */
  int32_t numbers2[10]; /**< The numbers behind these; the fifth and seventh are
                             dropped. */
  char texts2[3][20];   /**< The texts at the end. */
} InfoBlock54;
QUILON_SIZE(InfoBlock54, 172);
QUILON_OFFSET(InfoBlock54, texts1, 12);
QUILON_OFFSET(InfoBlock54, numbers2, 72);
QUILON_OFFSET(InfoBlock54, texts2, 112);

/** QUIL_READ_INFO_55. */
typedef struct InfoBlock55 {
  char texts[4][20]; /**< The answer's texts. */
} InfoBlock55;
QUILON_SIZE(InfoBlock55, 80);

/** QUIL_READ_INFO_56. */
typedef struct InfoBlock56 {
  char text[20];      /**< The answer's text. */
  int32_t numbers[5]; /**< The numbers behind it. */
} InfoBlock56;
QUILON_SIZE(InfoBlock56, 40);
QUILON_OFFSET(InfoBlock56, numbers, 20);

/** QUIL_READ_INFO_60. */
typedef struct InfoBlock60 {
  int32_t numbers1[3];  /**< The answer's first numbers. */
  char text1[30];       /**< The text behind them. */
  char text2[22];       /**< The text behind this, at most 19 characters. */
  int32_t numbers2[10]; /**< The numbers behind it; the seventh and ninth are
                             dropped. */
  char texts[5][20];    /**< The texts at the end. */
} InfoBlock60;
QUILON_SIZE(InfoBlock60, 204);
QUILON_OFFSET(InfoBlock60, text1, 12);
QUILON_OFFSET(InfoBlock60, text2, 42);
QUILON_OFFSET(InfoBlock60, numbers2, 64);
QUILON_OFFSET(InfoBlock60, texts, 104);

/** QUIL_READ_INFO_61. */
typedef struct InfoBlock61 {
  int32_t numbers[10]; /**< The answer's numbers; the sixth and tenth are
                            dropped. */
  char text[30];       /**< The text behind them, up to its CR. */
  char reserved1[2];   /**< Padding. */
} InfoBlock61;
QUILON_SIZE(InfoBlock61, 72);
QUILON_OFFSET(InfoBlock61, text, 40);

/** QUIL_READ_INFO_64. */
typedef struct InfoBlock64 {
  int32_t number;     /**< The answer's first number. */
  char text1[19];     /**< The text behind it. */
  char text2[14];     /**< The second text. */
  char text3[16];     /**< The third text, up to its CR. */
  char text4[23];     /**< The fourth text, up to its CR, at most 20
                           characters. */
  int32_t numbers[3]; /**< The numbers at the end. */
} InfoBlock64;
QUILON_SIZE(InfoBlock64, 88);
QUILON_OFFSET(InfoBlock64, text1, 4);
QUILON_OFFSET(InfoBlock64, text2, 23);
QUILON_OFFSET(InfoBlock64, text3, 37);
QUILON_OFFSET(InfoBlock64, text4, 53);
QUILON_OFFSET(InfoBlock64, numbers, 76);

#endif /* QUILON_RECORDS_INFO_BLOCKS_H_ */
