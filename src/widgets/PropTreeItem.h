// A row of a CPropTree: a label on the left, a value on the right.
#pragma once

#include <memory>
#include <string>
#include <vector>

class CPropTreeModel;

// How a value stands out. Neither by colour alone.
enum class PropLook { normal, changed, error };

// Texts are UTF-8. What is set here shows at the tree's next repaint, however many rows change before that; the layout
// stays. Main thread.
class CPropTreeItem {
public:
    explicit CPropTreeItem(std::string label) : label_(std::move(label)) {}
    virtual ~CPropTreeItem() = default;
    CPropTreeItem(const CPropTreeItem &) = delete;
    CPropTreeItem &operator=(const CPropTreeItem &) = delete;

    const std::string &Label() const { return label_; }
    const std::string &Value() const { return value_; }
    PropLook Look() const { return look_; }
    bool IsMarked() const { return marked_; }
    void SetLabel(std::string label);
    void SetValue(std::string value);
    void SetLook(PropLook look);
    void Mark(bool on);  // with the image of the tree's marks

    CPropTreeItem *Parent() const { return parent_; }  // null at the top level
    const std::vector<std::unique_ptr<CPropTreeItem>> &Children() const { return children_; }

private:
    friend class CPropTreeModel;
    void Changed();

    std::string label_, value_;
    PropLook look_ = PropLook::normal;
    bool marked_ = false;

    CPropTreeModel *model_ = nullptr;  // null while it stands in no tree
    CPropTreeItem *parent_ = nullptr;
    int place_ = 0;  // among its parent's children
    std::vector<std::unique_ptr<CPropTreeItem>> children_;
};

// A row whose value can be typed over.
class CPropTreeItemEdit : public CPropTreeItem {
public:
    using CPropTreeItem::CPropTreeItem;

    // The in-place edit ends with `text`, which is another than the value on show.
    virtual void CommitEdit(const std::string &text) = 0;
    virtual bool BeginEdit() = 0;  // the edit starts; false: not now
};
