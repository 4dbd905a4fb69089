#pragma once

#include <QObject>
#include <QTextBlock>
#include <QVariantMap>
#include <functional>
#include <optional>

class CBracketFinder;
class CTextDocument;

// The bracket beside the cursor and its partner. Positions count UTF-16 units of the document.
struct SBracketPair
{
    int nBracket = -1; // -1 if there is none.
    int nPartner = -1; // -1 if there is none, or while it is searched for.
    int nLine = -1; // The block of the bracket.
    int nPartnerLine = -1;
    bool bSearching = false;

    // The lines follow from the positions.
    bool isSamePair(const SBracketPair &other) const
    {
        return nBracket == other.nBracket && nPartner == other.nPartner;
    }
};

// Finds the pair at a place of a document, and remembers it for as long as nothing that it depends
// on has changed. The visible text is searched at once by its colours, the rest on a thread.
// GUI thread only.
class CBracketPair : public QObject
{
    Q_OBJECT

public:
    // The visible part of the document.
    struct SView
    {
        QTextBlock first;
        int nHeight; // Pixels.
        std::function<QTextBlock()> last; // Takes a look at each visible block.
    };

    // The document has to outlive the object.
    CBracketPair(CTextDocument *pDocument, QObject *pParent);

    // Sets the language, which decides what a comment or a string is.
    void setDefinition(const QVariantMap &mapDefinition);
    const SBracketPair &at(int nPosition, const SView &view);

signals:
    // The search on the thread has ended. at() gives its result.
    void found();

private:
    // What the pair depends on.
    struct SKey
    {
        uint nVersion;
        uint nLook;
        int nPosition;
        int nFirstVisible;
        int nHeight;
        bool operator==(const SKey &other) const
        {
            return nVersion == other.nVersion && nLook == other.nLook
                && nPosition == other.nPosition && nFirstVisible == other.nFirstVisible
                && nHeight == other.nHeight;
        }
    };
    SBracketPair search(int nPosition, const SView &view);
    SBracketPair pairOf(const QTextBlock &block, int nInBlock, const SView &view);

    CTextDocument *m_pDocument;
    CBracketFinder *m_pFinder;
    SBracketPair m_pair;
    std::optional<SKey> m_key; // That of m_pair.
};
