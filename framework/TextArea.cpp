#include "framework/TextArea.hpp"

#include "framework/Window.hpp"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace tovarin::fw {

namespace {

// Splits at CR LF, CR or LF; each of them ends one line.
QStringList splitLines(const QString& text) {
    QStringList lines;
    QString current;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'\r' || c == u'\n') {
            lines.append(current);
            current.clear();
            if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
                ++i;
        } else {
            current.append(c);
        }
    }
    lines.append(current);
    return lines;
}

} // namespace

TextArea::TextArea(QWidget* parent) : QTextEdit(parent) {}

void TextArea::keyPressEvent(QKeyEvent* event) {
    // Where the platform makes no context menu event of these keys, the control does.
    if (isContextMenuKey(*event) &&
        popUpTextMenu(*this, viewport()->mapToGlobal(cursorRect().center()))) {
        event->accept();
        return;
    }
    if (offerKey(keyDown_, *event)) {
        event->accept();
        return;
    }
    QTextEdit::keyPressEvent(event);
}

void TextArea::contextMenuEvent(QContextMenuEvent* event) {
    if (!popUpTextMenu(*this, event->globalPos()))
        QTextEdit::contextMenuEvent(event);
}

void TextArea::appendPlain(const QString& text) {
    // A cursor of its own: the user's selection and the view stay where they are,
    // and only the new text is laid out.
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    QTextCharFormat plain = cursor.charFormat();
    plain.setFontWeight(QFont::Normal);
    cursor.beginEditBlock();
    const QStringList lines = splitLines(text);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i > 0)
            cursor.insertBlock();
        if (!lines[i].isEmpty())
            cursor.insertText(lines[i], plain);
    }
    cursor.endEditBlock();
    document()->clearUndoRedoStacks();
}

void TextArea::setBold(qint64 start, qint64 length) {
    // Document positions count a line end as one character, as the text does.
    const qint64 size = document()->characterCount() - 1; // without the final block end
    const qint64 from = std::max<qint64>(start - 1, 0);
    const qint64 to = std::min<qint64>(from + std::max<qint64>(length, 0), size);
    if (from >= to)
        return;
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(from));
    cursor.setPosition(static_cast<int>(to), QTextCursor::KeepAnchor);
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    cursor.mergeCharFormat(bold);
    document()->clearUndoRedoStacks();
}

} // namespace tovarin::fw
