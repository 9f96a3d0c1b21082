// Each line that ends in the name of a warning has to draw it, and no other line may draw any.
#include <strlib.h>

void use(int32_t result);
void use(const void *result);

static char eight[8], other[8];
static uint32_t codePoint;
static int32_t number;

void nullWhereNoneMayBe(const char *text, char *room) {
    use(TQANSI_stricmp(nullptr, text));                // -Wnonnull
    use(TQANSI_stricmp(text, nullptr));                // -Wnonnull
    use(customStricmp(nullptr, text, nullptr));        // -Wnonnull
    use(customStricmp(text, nullptr, nullptr));        // -Wnonnull
    use(TQ_isBlankLine(nullptr));                      // -Wnonnull
    use(TQANSI_atoi(nullptr));                         // -Wnonnull
    use(X_TAMBRO_gets(nullptr, 1, text));              // -Wnonnull
    use(X_TAMBRO_gets(room, 1, nullptr));              // -Wnonnull
    use(unicodeToUtf8(65, nullptr));                   // -Wnonnull
    use(utf8ToUnicode(nullptr, &codePoint, &number));  // -Wnonnull
    use(utf8ToUnicode(text, nullptr, &number));        // -Wnonnull
    use(utf8ToUnicode(text, &codePoint, nullptr));     // -Wnonnull
    use(utf8ReadChar(nullptr, &number, room));         // -Wnonnull
    use(string_operator_diff(nullptr, text));          // -Wnonnull
    use(string_operator_diff(text, nullptr));          // -Wnonnull
    use(string_operator_add(nullptr, text, 1));        // -Wnonnull
    use(string_operator_add(room, nullptr, 1));        // -Wnonnull
}

void droppedResults(const char *text, const char *second, const uint8_t *table) {
    TQANSI_strlen(text);                 // -Wunused-value
    TQANSI_strcmp(text, second);         // -Wunused-value
    TQANSI_strncmp(text, second, 3);     // -Wunused-value
    TQANSI_stricmp(text, second);        // -Wunused-value
    TQANSI_strnicmp(text, second, 3);    // -Wunused-value
    customStricmp(text, second, table);  // -Wunused-value
    TQANSI_memcmp(text, second, 3);      // -Wunused-value
    TQANSI_strchr(text, 'a');            // -Wunused-value
    TQANSI_strrchr(text, 'a');           // -Wunused-value
    TQANSI_memchr(text, 'a', 3);         // -Wunused-value
    TQANSI_strpbrk(text, second);        // -Wunused-value
    TQANSI_strstr(text, second);         // -Wunused-value
    TQ_stristr(text, second);            // -Wunused-value
    TQANSI_toupper('a');                 // -Wunused-value
    TQANSI_isalpha('a');                 // -Wunused-value
    TQANSI_isdigit('a');                 // -Wunused-value
    TQ_isBlankLine(text);                // -Wunused-value
    TQ_isAttribute(1, table, 'a');       // -Wunused-value
    TQANSI_atoi(text);                   // -Wunused-value
    TQANSI_strpbrkUTF8(text, second);    // -Wunused-value
    string_operator_diff(text, second);  // -Wunused-value
}

void sizesBeyondTheBuffer(const char *text, const intptr_t *arguments) {
    TQANSI_memset(eight, 0, 9);             // -Wstringop-overflow
    TQANSI_itoa(1, eight, 9, 10);           // -Wstringop-overflow
    TQ_sprintf(eight, 9, text, arguments);  // -Wstringop-overflow
    X_TAMBRO_gets(eight, 9, text);          // -Wstringop-overflow
    use(TQANSI_memcmp(eight, text, 9));     // -Wstringop-overread
    use(TQANSI_memcmp(text, eight, 9));     // -Wstringop-overread
}

// Null for each argument that may be null, and every size that a buffer has room for. (GCC also warns of a literal null
// with a literal size, which TQANSI_memset(), TQANSI_itoa() and TQ_sprintf() answer but nobody would write.)
void legitimate(const char *text, char *room, const char *null, char *noRoom, const uint8_t *noTable,
                const void *nowhere) {
    use(TQANSI_strlen(nullptr));
    TQANSI_strcpy(nullptr, text);
    TQANSI_strcpy(room, nullptr);
    TQANSI_strncpy(nullptr, nullptr, 3);
    TQANSI_strcat(nullptr, nullptr);
    TQANSI_strncat(room, nullptr, -1);
    TQ_strappend(nullptr, nullptr);
    TQANSI_memset(noRoom, 0, 9);
    TQANSI_memset(nullptr, 0, 0);
    TQANSI_memset(eight, 0, sizeof eight);
    use(TQANSI_strcmp(nullptr, nullptr));
    use(TQANSI_strncmp(nullptr, text, 3));
    use(TQANSI_strnicmp(nullptr, nullptr, 3));
    use(customStricmp(text, text, nullptr));
    use(TQANSI_memcmp(nullptr, nullptr, 0));
    use(TQANSI_memcmp(eight, other, sizeof eight));
    use(TQANSI_strchr(nullptr, 'a'));
    use(TQANSI_strrchr(nullptr, 'a'));
    use(TQANSI_memchr(nullptr, 'a', 3));
    use(TQANSI_memchr("abc", 'a', 100));
    use(TQANSI_strpbrk(nullptr, nullptr));
    use(TQANSI_strstr(text, nullptr));
    use(TQ_stristr(nullptr, text));
    use(TQ_isAttribute(1, nullptr, 'a'));
    TQ_convertZstring(nullptr, nullptr);
    TQANSI_itoa(1, noRoom, 9, 10);
    TQANSI_itoa(1, nullptr, 0, 10);
    TQANSI_itoa(1, eight, sizeof eight, 10);
    TQ_sprintf(noRoom, 9, text, nullptr);
    TQ_sprintf(nullptr, 0, text, nullptr);
    TQ_sprintf(eight, sizeof eight, nullptr, nullptr);
    TQ_sscanf(nullptr, nullptr, nullptr);
    X_TAMBRO_gets(eight, sizeof eight - 1, text);
    TQ_strtoklen(nullptr, nullptr, nullptr);
    TQ_strtoken(nullptr, nullptr, nullptr);
    utf8ReadChar(text, nullptr, nullptr);
    use(TQANSI_strpbrkUTF8(nullptr, nullptr));
    use(TQANSI_strpbrk(null, text));
    use(TQ_isAttribute(1, noTable, 'a'));
    use(TQANSI_memchr(nowhere, 'a', 3));
}
