#include "desktop/kit/access_keys.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QTabBar>
#include <QVariant>
#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <vector>

namespace counter {

namespace {

constexpr const char* kGiven = "givenCaption";  // property: the caption as it was marked here

struct Caption {
    QString Text;  // without a mark
    std::function<void(const QString&)> Show;
};

// Before which letter the mark is; -1: there is none.
qsizetype MarkOf(const QString& caption) {
    for (qsizetype at = caption.indexOf('&'); at >= 0 && at + 1 < caption.size();
         at = caption.indexOf('&', at + 2)) {
        if (caption[at + 1] != '&') return at + 1;
    }
    return -1;
}

QString Marked(const QString& text, qsizetype letter) {
    QString marked;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (i == letter) marked += '&';
        marked += text[i];
        if (text[i] == '&') marked += '&';
    }
    return marked;
}

// Beginnings of words first: they are what the eye looks for.
std::vector<qsizetype> LettersOf(const QString& text) {
    std::vector<qsizetype> letters, later;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool can = text[i].unicode() < 128 && text[i].isLetterOrNumber();
        if (can) (i == 0 || text[i - 1].isSpace() ? letters : later).push_back(i);
    }
    letters.insert(letters.end(), later.begin(), later.end());
    return letters;
}

// What must have a key before any field has one.
bool IsCommand(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return (button && !button->isCheckable()) || qobject_cast<const QTabBar*>(&widget);
}

void ShowMarked(QWidget& widget, const QString& marked) {
    widget.setProperty(kGiven, marked);
    if (widget.property("text").toString() != marked) widget.setProperty("text", marked);
}

class Keys {
  public:
    explicit Keys(QWidget& window) {
        const auto* main = qobject_cast<QMainWindow*>(&window);
        const QWidget* menu = main ? main->menuWidget() : nullptr;
        if (menu && menu->isVisibleTo(&window)) {
            for (const QAction* heading : menu->actions()) Take(heading->text());
        }
        const QList<QWidget*> widgets = window.findChildren<QWidget*>();
        for (const bool command : {true, false}) {
            for (QWidget* widget : widgets) {
                const bool onShow = widget->window() == &window && widget->isVisibleTo(&window);
                if (onShow && IsCommand(*widget) == command) AddWidget(*widget, window);
            }
        }
    }

    void Give() {
        for (std::size_t i = 0; i < captions_.size(); ++i) {
            std::set<QChar> tried;
            FindFor(i, tried);
        }
        std::vector<qsizetype> letters(captions_.size(), -1);
        for (const auto& [key, owner] : owners_) letters[owner.first] = owner.second;
        for (std::size_t i = 0; i < captions_.size(); ++i)
            captions_[i].Show(Marked(captions_[i].Text, letters[i]));
    }

  private:
    void Take(const QString& caption) {
        if (const qsizetype mark = MarkOf(caption); mark >= 0) taken_.insert(caption[mark].toUpper());
    }

    void AddTabs(QTabBar& strip) {
        for (int tab = 0; tab < strip.count(); ++tab) {
            captions_.push_back({WithoutKey(strip.tabText(tab)), [&strip, tab](const QString& text) {
                                     if (strip.tabText(tab) != text) strip.setTabText(tab, text);
                                 }});
        }
    }

    void AddWidget(QWidget& widget, const QWidget& window) {
        if (auto* strip = qobject_cast<QTabBar*>(&widget)) return AddTabs(*strip);
        const auto* label = qobject_cast<QLabel*>(&widget);
        const QWidget* what = label && label->buddy() ? label->buddy() : &widget;
        const bool names =
            label ? label->buddy() != nullptr : qobject_cast<QAbstractButton*>(&widget) != nullptr;
        const QString text = names ? widget.property("text").toString() : QString();
        if (WithoutKey(text).trimmed().isEmpty() || widget.property(kOwnKey).toBool()) return;
        if (MarkOf(text) >= 0 && widget.property(kGiven).toString() != text) return Take(text);
        if (!what->isEnabledTo(&window)) return ShowMarked(widget, Marked(WithoutKey(text), -1));
        captions_.push_back(
            {WithoutKey(text), [&widget](const QString& marked) { ShowMarked(widget, marked); }});
    }

    // Takes a free letter, or one whose caption finds another.
    bool FindFor(std::size_t caption, std::set<QChar>& tried) {
        const QString& text = captions_[caption].Text;
        for (const qsizetype letter : LettersOf(text)) {
            const QChar key = text[letter].toUpper();
            if (taken_.contains(key) || !tried.insert(key).second) continue;
            const auto owner = owners_.find(key);
            if (owner != owners_.end() && !FindFor(owner->second.first, tried)) continue;
            owners_[key] = {caption, letter};
            return true;
        }
        return false;
    }

    std::set<QChar> taken_;
    std::vector<Caption> captions_;
    std::map<QChar, std::pair<std::size_t, qsizetype>> owners_;  // a key's caption and the letter in it
};

}  // namespace

void GiveAccessKeys(QWidget& window) {
    Keys(window).Give();
}

QString WithoutKey(const QString& caption) {
    QString text;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i;
        text += caption[i];
    }
    return text;
}

}  // namespace counter
