// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxSecureTextField.h"

#include "base/Utf8.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStringEncoder>
#include <QStyleOptionFrame>
#include <QTextLayout>

#include <algorithm>
#include <array>
#include <optional>
#include <string.h>
#include <utility>

namespace fv2 {

namespace {

//! What Qt sees for one character. No keyboard types it, so anything else in the field is foreign.
constexpr QChar kDot(0x25cf);
constexpr QChar kUnseen(0x25a1);
//! QLineEdit's margin beside its text.
constexpr int kInnerMargin = 2;

//! A QString that is overwritten when it is destroyed, unless it is shared.
class PassingText {
public:
    explicit PassingText(QString text)
        : m_text(std::move(text)) {}
    PassingText(const PassingText&) = delete;
    PassingText& operator=(const PassingText&) = delete;
    ~PassingText() {
        if (m_text.isDetached())
            ::explicit_bzero(m_text.data(), static_cast<std::size_t>(m_text.size()) * sizeof(QChar));
    }
    [[nodiscard]] QString& text() { return m_text; }

private:
    QString m_text;
};

int dotsFor(std::string_view utf8) {
    return static_cast<int>(charactersIn(utf8));
}

//! Where the character of that number begins, or the end.
std::size_t byteOf(int character, std::string_view utf8) {
    std::size_t byte = 0;
    for (int passed = -1; byte < utf8.size(); ++byte)
        if (beginsCharacter(utf8[byte]) && ++passed == character)
            break;
    return byte;
}

//! UTF-8 of a text that a password can hold.
std::optional<SecretText> encoded(QStringView text) {
    if (!text.isValidUtf16())
        return std::nullopt;
    SecretText utf8(NxSecureTextField::kMostBytes);
    QStringEncoder encoder(QStringEncoder::Utf8);
    std::array<char, 16> bytes{};
    bool fits = true;
    for (qsizetype at = 0; at < text.size() && fits;) {
        const QStringView character = text.mid(at, text[at].isHighSurrogate() ? 2 : 1);
        const char* const end = encoder.appendToBuffer(bytes.data(), character);
        fits = bytes.front() != '\0' && utf8.append({bytes.data(), static_cast<std::size_t>(end - bytes.data())});
        at += character.size();
    }
    ::explicit_bzero(bytes.data(), bytes.size());
    return fits ? std::optional(std::move(utf8)) : std::nullopt;
}

//! Whether a key types text and is no command.
bool isTyped(const QKeyEvent& event) {
    const Qt::KeyboardModifiers with = event.modifiers();
    const QString text = event.text();
    if (text.isEmpty() || with == Qt::ControlModifier || with == (Qt::ControlModifier | Qt::ShiftModifier))
        return false;
    return text.front().category() != QChar::Other_Control;
}

} // namespace

NxSecureTextField::NxSecureTextField(QWidget* parent)
    : NxFramedField(parent) {
    setEchoMode(Password);
    setDragEnabled(false);
    setAcceptDrops(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    m_revealEnd.setSingleShot(true);
    m_revealEnd.setInterval(kRevealTime);
    connect(&m_revealEnd, &QTimer::timeout, this, [this] { setRevealed(false); });
    connect(this, &QLineEdit::textChanged, this, &NxSecureTextField::onTextChanged);
    connect(this, &QLineEdit::cursorPositionChanged, this, &NxSecureTextField::keepCaretInSight);
    connect(this, &QLineEdit::selectionChanged, this, qOverload<>(&QWidget::update));
}

SecretText NxSecureTextField::takeSecret() {
    setRevealed(false);
    m_taken = true;
    return std::exchange(m_secret, SecretText(kMostBytes));
}

void NxSecureTextField::clear() {
    m_secret.wipe();
    m_taken = false;
    setRevealed(false);
    setText({});
    Q_EMIT secretChanged();
}

bool NxSecureTextField::agrees() const {
    const QString dots = text();
    return !m_taken && dots.size() == dotsFor(m_secret.text()) && dots.count(kDot) == dots.size();
}

//! Somebody else may set the text, as screen readers can.
void NxSecureTextField::onTextChanged() {
    if (!m_editing && !agrees())
        clear();
}

//! Runs an edit of the dots that can only delete, then deletes the same from the secret: the caret is left where the
//! deletion was.
void NxSecureTextField::edit(const std::function<void()>& step) {
    const auto before = text().size();
    m_editing = true;
    step();
    m_editing = false;
    const auto gone = static_cast<int>(before - text().size());
    if (gone == 0) {
        keepCaretInSight();
        return;
    }
    const std::size_t from = byteOf(cursorPosition(), m_secret.text());
    m_secret.replace(from, byteOf(cursorPosition() + gone, m_secret.text()) - from, {});
    if (!agrees()) {
        clear();
        return;
    }
    setRevealed(m_revealed && !m_secret.empty());
    keepCaretInSight();
    Q_EMIT secretChanged();
}

//! Puts the text in place of what is selected.
void NxSecureTextField::enter(QStringView text) {
    const int place = hasSelectedText() ? selectionStart() : cursorPosition();
    const std::size_t from = byteOf(place, m_secret.text());
    const std::size_t to = byteOf(place + selectionLength(), m_secret.text());
    const auto utf8 = encoded(text);
    if (!utf8 || m_taken || !m_secret.replace(from, to - from, utf8->text())) {
        QApplication::beep();
        Q_EMIT inputRefused();
        return;
    }
    insert(QString(dotsFor(utf8->text()), kDot));
    keepCaretInSight();
    Q_EMIT secretChanged();
}

void NxSecureTextField::paste(QClipboard::Mode mode) {
    PassingText pasted(QGuiApplication::clipboard()->text(mode));
    const auto& text = std::as_const(pasted.text());
    const auto end = std::find_if(text.begin(), text.end(), [](QChar c) { return c == u'\n' || c == u'\r'; });
    if (end != text.begin())
        enter(QStringView(text.begin(), end));
}

void NxSecureTextField::keyPressEvent(QKeyEvent* event) {
    for (const auto key : {QKeySequence::Undo, QKeySequence::Redo, QKeySequence::Cut, QKeySequence::Copy})
        if (event->matches(key))
            return;
    if (event->matches(QKeySequence::Paste)) {
        // The second of X11's pasting keys takes what is selected somewhere.
        const bool selection = event->key() == Qt::Key_Insert && event->modifiers().testFlag(Qt::ControlModifier);
        paste(selection ? QClipboard::Selection : QClipboard::Clipboard);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        QLineEdit::keyPressEvent(event);
    } else if (isTyped(*event)) {
        enter(event->text());
    } else {
        edit([this, event] { QLineEdit::keyPressEvent(event); });
    }
}

void NxSecureTextField::inputMethodEvent(QInputMethodEvent* event) {
    if (event->replacementLength() > 0) {
        const auto length = static_cast<int>(text().size());
        const int from = std::clamp(cursorPosition() + event->replacementStart(), 0, length);
        setSelection(from, std::min(event->replacementLength(), length - from));
    }
    if (!event->commitString().isEmpty() || event->replacementLength() > 0)
        enter(event->commitString());
    QInputMethodEvent hidden(QString(event->preeditString().size(), kDot), event->attributes());
    edit([this, &hidden] { QLineEdit::inputMethodEvent(&hidden); });
}

void NxSecureTextField::mousePressEvent(QMouseEvent* event) {
    if (!m_revealed || event->button() != Qt::LeftButton) {
        QLineEdit::mousePressEvent(event);
        return;
    }
    m_anchor = placeAt(event->position().x());
    setCursorPosition(m_anchor);
}

void NxSecureTextField::mouseMoveEvent(QMouseEvent* event) {
    if (!m_revealed)
        QLineEdit::mouseMoveEvent(event);
    else if (event->buttons().testFlag(Qt::LeftButton))
        setSelection(m_anchor, placeAt(event->position().x()) - m_anchor);
}

void NxSecureTextField::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton)
        QLineEdit::mouseReleaseEvent(event);
    else if (QGuiApplication::clipboard()->supportsSelection())
        paste(QClipboard::Selection);
}

void NxSecureTextField::focusOutEvent(QFocusEvent* event) {
    setRevealed(false);
    QLineEdit::focusOutEvent(event);
}

void NxSecureTextField::setRevealed(bool revealed) {
    revealed = revealed && hasFocus() && !m_secret.empty();
    if (revealed)
        m_revealEnd.start();
    else
        m_revealEnd.stop();
    if (std::exchange(m_revealed, revealed) == revealed)
        return;
    m_scrolled = 0;
    keepCaretInSight();
    Q_EMIT revealedChanged(revealed);
}

QRect NxSecureTextField::textPlace() const {
    QStyleOptionFrame panel;
    initStyleOption(&panel);
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &panel, this)
        .marginsRemoved(textMargins())
        .adjusted(kInnerMargin, 0, -kInnerMargin, 0);
}

//! Lays out the real text while it is used.
void NxSecureTextField::withRevealedLine(const std::function<void(const QTextLayout&, const QTextLine&)>& use) const {
    const std::string_view utf8 = m_secret.text();
    PassingText shown(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
    for (QChar& c : shown.text())
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            c = kUnseen;
    QTextLayout layout(shown.text(), font(), this);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    use(layout, line);
}

//! A position among the dots, in the text laid out.
int NxSecureTextField::revealedPosition(int place) const {
    const std::string_view before = m_secret.text().substr(0, byteOf(place, m_secret.text()));
    const auto pairs = std::count_if(before.begin(), before.end(),
                                     [](char byte) { return static_cast<unsigned char>(byte) >= 0xf0U; });
    return dotsFor(before) + static_cast<int>(pairs);
}

int NxSecureTextField::placeAt(double x) const {
    int place = 0;
    withRevealedLine([&](const QTextLayout&, const QTextLine& line) {
        const int wanted = line.xToCursor(x - textPlace().left() + m_scrolled);
        while (revealedPosition(place) < wanted)
            ++place;
    });
    return place;
}

void NxSecureTextField::keepCaretInSight() {
    update();
    if (!m_revealed || m_editing)
        return;
    withRevealedLine([this](const QTextLayout&, const QTextLine& line) {
        const double room = textPlace().width() - 1;
        const double caret = line.cursorToX(revealedPosition(cursorPosition()));
        m_scrolled = std::clamp(m_scrolled, caret - room, std::max(caret, 0.0));
        m_scrolled = std::clamp(m_scrolled, 0.0, std::max(line.naturalTextWidth() - room, 0.0));
    });
}

void NxSecureTextField::paintEvent(QPaintEvent* event) {
    if (m_revealed)
        paintRevealed();
    else
        NxFramedField::paintEvent(event);
}

void NxSecureTextField::paintRevealed() {
    paintFrame();
    QPainter painter(this);
    const QRect place = textPlace();
    painter.setClipRect(place);
    painter.setPen(palette().color(QPalette::Text));
    withRevealedLine([&](const QTextLayout& layout, const QTextLine& line) {
        const QPointF origin(place.left() - m_scrolled, place.top() + std::floor((place.height() - line.height()) / 2));
        QTextLayout::FormatRange selected{revealedPosition(selectionStart()), 0, {}};
        selected.length = revealedPosition(selectionEnd()) - selected.start;
        selected.format.setBackground(palette().brush(QPalette::Highlight));
        selected.format.setForeground(palette().brush(QPalette::HighlightedText));
        layout.draw(&painter, origin, hasSelectedText() ? QList{selected} : QList<QTextLayout::FormatRange>{});
        layout.drawCursor(&painter, origin, revealedPosition(cursorPosition()));
    });
}

} // namespace fv2
