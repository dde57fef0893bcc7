#pragma once

#include <QObject>

/// Makes one commit of the many changes of a control that a key or a mouse button holds down: it comes with the
/// release. Any other change is committed at once.
class HeldChange : public QObject
{
    Q_OBJECT

public:
    explicit HeldChange(QObject* pParent);

    /// Watches a control; one value may have several.
    void watch(QWidget* pControl);

    /// The value has changed.
    void changed();

    /// A stepping key or a mouse button is down.
    bool isHeld() const { return isDown; }

signals:
    void committed();

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void release();

    bool isDown = false;
    bool isChangePending = false;
};
