# What the label area adds here.
korvo_test(tst_labelfile korvo_label)
