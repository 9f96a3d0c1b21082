/* Valid as C and as C++. Each line that ends in a comment has to draw a warning of that kind (null: for a null pointer
   where none may be; dropped: for a result that nobody uses; room: for an array that is too small), and no other line
   may draw any. */
#include <stddef.h>
#include <strlib.h>

void use(int32_t result, ...);
void fill(char *array, ...);
void misuse(const char *text, const char *second, const uint8_t *table, const intptr_t *arguments, uint32_t codePoint,
            char *room);
void legitimate(const char *text, char *room, const char *null, char *noRoom, const uint8_t *noTable, int32_t count,
                uint32_t codePoint);

struct Record {
    char name[4];
    char country[4];
};

void misuse(const char *text, const char *second, const uint8_t *table, const intptr_t *arguments, uint32_t codePoint,
            char *room) {
    char two[2], four[4], eight[8];
    struct Record record;
    int32_t number;
    fill(two, four, eight, &record);

    use(TQANSI_stricmp(NULL, text));          /* null */
    use(TQANSI_stricmp(text, NULL));          /* null */
    use(customStricmp(NULL, text, table));    /* null */
    use(customStricmp(text, NULL, table));    /* null */
    use(TQ_isBlankLine(NULL));                /* null */
    use(TQANSI_atoi(NULL));                   /* null */
    X_TAMBRO_gets(NULL, 1, text);             /* null */
    X_TAMBRO_gets(room, 1, NULL);             /* null */
    unicodeToUtf8(65, NULL);                  /* null */
    utf8ToUnicode(NULL, &codePoint, &number); /* null */
    utf8ToUnicode(text, NULL, &number);       /* null */
    utf8ToUnicode(text, &codePoint, NULL);    /* null */
    utf8ReadChar(NULL, &number, room);        /* null */
    use(string_operator_diff(NULL, text));    /* null */
    use(string_operator_diff(text, NULL));    /* null */
    string_operator_add(NULL, text, 1);       /* null */
    string_operator_add(room, NULL, 1);       /* null */

    TQANSI_strlen(text);                /* dropped */
    TQANSI_strcmp(text, second);        /* dropped */
    TQANSI_strncmp(text, second, 3);    /* dropped */
    TQANSI_stricmp(text, second);       /* dropped */
    TQANSI_strnicmp(text, second, 3);   /* dropped */
    customStricmp(text, second, table); /* dropped */
    TQANSI_memcmp(text, second, 3);     /* dropped */
    TQANSI_strchr(text, 'a');           /* dropped */
    TQANSI_strrchr(text, 'a');          /* dropped */
    TQANSI_memchr(text, 'a', 3);        /* dropped */
    TQANSI_strpbrk(text, second);       /* dropped */
    TQANSI_strstr(text, second);        /* dropped */
    TQ_stristr(text, second);           /* dropped */
    TQANSI_toupper('a');                /* dropped */
    TQANSI_isalpha('a');                /* dropped */
    TQANSI_isdigit('a');                /* dropped */
    TQ_isBlankLine(text);               /* dropped */
    TQ_isAttribute(1, table, 'a');      /* dropped */
    TQANSI_atoi(text);                  /* dropped */
    TQANSI_strpbrkUTF8(text, second);   /* dropped */
    string_operator_diff(text, second); /* dropped */

    TQANSI_memset(eight, 0, 9);                            /* room */
    TQANSI_itoa(1, eight, 9, 10);                          /* room */
    TQ_sprintf(eight, 9, text, arguments);                 /* room */
    use(TQANSI_memcmp(eight, text, 9));                    /* room */
    use(TQANSI_memcmp(text, eight, 9));                    /* room */
    TQANSI_strncpy(four, text, sizeof four);               /* room */
    TQANSI_strncpy(four, "abcd", sizeof four);             /* room */
    TQANSI_strncpy(&four[2], text, 2);                     /* room */
    TQANSI_strncpy(record.name, text, sizeof record.name); /* room */
    TQANSI_strncat(four, text, sizeof four);               /* room */
    TQANSI_strncat(four, "abcd", sizeof four);             /* room */
    TQANSI_strcpy(four, "abcd");                           /* room */
    TQANSI_strcat(four, "abcd");                           /* room */
    TQ_strappend(four, "abcd");                            /* room */
    X_TAMBRO_gets(four, sizeof four, text);                /* room */
    X_TAMBRO_gets(four, sizeof four, "abcd");              /* room */
    string_operator_add(two, text, 1);                     /* room */
    string_operator_add(two, "a", 1);                      /* room */
    string_operator_add(four, "a", 1);                     /* room */
    unicodeToUtf8(codePoint, four);                        /* room */
    unicodeToUtf8(0x10000, four);                          /* room */
    unicodeToUtf8(0x80, two);                              /* room */
    utf8ReadChar(text, &number, four);                     /* room */
    utf8ReadChar("\xF0\x9F\x98\x80", &number, four);       /* room */
    utf8ReadChar("\xC3\xA9", &number, two);                /* room */
    use(0, two, four, &record);
}

void legitimate(const char *text, char *room, const char *null, char *noRoom, const uint8_t *noTable, int32_t count,
                uint32_t codePoint) {
    static const char raw[3] = {'a', 'b', 'c'};
    char two[2], three[3], four[4], five[5], seven[7], eight[8];
    struct Record record;
    int32_t number;
    fill(two, four, eight);

    /* Null for each argument that may be null. (GCC also warns of a literal null with a literal size, which
       TQANSI_memset(), TQANSI_itoa() and TQ_sprintf() answer but nobody would write.) */
    TQ_convertZstring(NULL, NULL);
    use(TQANSI_strlen(NULL), TQANSI_strcpy(NULL, text), TQANSI_strcpy(room, NULL), TQANSI_strncpy(NULL, NULL, 3),
        TQANSI_strcat(NULL, NULL), TQANSI_strncat(NULL, NULL, -1), TQ_strappend(NULL, NULL),
        TQANSI_memset(noRoom, 0, 9), TQANSI_memset(NULL, 0, 0), TQANSI_strcmp(NULL, NULL),
        TQANSI_strncmp(NULL, NULL, 3), TQANSI_strnicmp(NULL, NULL, 3), customStricmp(text, text, NULL),
        TQANSI_memcmp(NULL, NULL, 0), TQANSI_strchr(NULL, 'a'), TQANSI_strrchr(NULL, 'a'), TQANSI_memchr(NULL, 'a', 3),
        TQANSI_memchr(null, 'a', 3), TQANSI_strpbrk(NULL, NULL), TQANSI_strpbrk(null, text), TQANSI_strstr(NULL, NULL),
        TQ_stristr(NULL, NULL), TQ_isAttribute(1, NULL, 'a'), TQ_isAttribute(1, noTable, 'a'),
        TQANSI_itoa(1, noRoom, 9, 10), TQANSI_itoa(1, NULL, 0, 10), TQ_sprintf(noRoom, 9, text, NULL),
        TQ_sprintf(NULL, 0, text, NULL), TQ_sprintf(eight, sizeof eight, NULL, NULL), TQ_sscanf(NULL, NULL, NULL),
        TQ_strtoklen(NULL, NULL, NULL), TQ_strtoken(NULL, NULL, NULL), utf8ReadChar(text, NULL, NULL),
        TQANSI_strpbrkUTF8(NULL, NULL));

    /* Every size that an array has room for, and every source and code point that fits as far as the compiler knows. */
    use(0, TQANSI_memset(eight, 0, sizeof eight), TQANSI_memcmp(eight, seven, sizeof seven),
        TQANSI_memchr("abc", 'a', 100), TQANSI_itoa(1, eight, sizeof eight, 10),
        TQANSI_strncpy(four, "ab", sizeof four), TQANSI_strncpy(four, "abc", sizeof four),
        TQANSI_strncpy(four, raw, sizeof raw), TQANSI_strncpy(four, text, sizeof four - 1),
        TQANSI_strncpy(four, text, count), TQANSI_strncpy(four, "abcdef", count), TQANSI_strncpy(four, text, -1),
        TQANSI_strncpy(four, NULL, sizeof four), TQANSI_strncpy(NULL, text, sizeof four),
        TQANSI_strncpy(room, text, 100), TQANSI_strncpy(record.name, text, sizeof record.name - 1),
        TQANSI_strncpy(record.country, "Peru", 3), TQANSI_strcpy(four, "abc"), TQANSI_strcpy(four, text),
        TQANSI_strcpy(four, NULL), TQANSI_strcat(four, "abc"), TQ_strappend(four, "abc"),
        TQANSI_strncat(four, text, sizeof four - 1), TQANSI_strncat(four, "abc", sizeof four),
        X_TAMBRO_gets(four, sizeof four - 1, text), X_TAMBRO_gets(four, sizeof four, "abc"),
        X_TAMBRO_gets(four, count, text), unicodeToUtf8(codePoint, seven), unicodeToUtf8(0x7FFFFFFF, seven),
        unicodeToUtf8(0xFFFF, four), unicodeToUtf8('a', two), unicodeToUtf8(0x80000000, two),
        utf8ReadChar(text, &number, five), utf8ReadChar("\xE2\x82\xAC", &number, four),
        utf8ReadChar("\xC3\xA9", &number, three), utf8ReadChar("a", &number, two), string_operator_add(five, text, 1),
        string_operator_add(five, "abcd", 1), string_operator_add(room, "abcdefgh", 1));
}
