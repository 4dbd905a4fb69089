/* Counts the words of its input,
   a comment open over "three" lines // with a mark inside
   and closed here. */ #include is no directive here
#include <stdio.h>
#  include "words.h"
#define LIMIT(a, b) ((a) < (b) ? (a) : (b))
#if defined(__STDC_VERSION__) && __STDC_VERSION__ >= 202311L

typedef struct node { uint32_t count; struct node *next; } node_t;

static const char *const text = "a \"quoted\" word, a backslash \\";
[[nodiscard]] int count_words(FILE *in, size_t limit)
{
    int c, words = 0; // state of the line\
    goes on here, for the line above ends in a backslash
    bool inside = false;
    while ((c = getc(in)) != EOF && limit-- > 0) {
        if (c == ' ' || c == '\n')
            inside = false;
        else if (!inside)
            inside = true, ++words;
    }
    return words * 0x1F + 017 - -12.5e3 / 3.f;
}

int main(void)
{
    constexpr double half = .5; /* one */ auto x = 1ULL; /* two */
    printf("%d words, %s\n", count_words(stdin, SIZE_MAX), nullptr);
    const char *open = "a string that is
        carried over a line";
    goto end;
end:
    return EXIT_SUCCESS;
}
#endif
