# What the label area adds here.
korvo_fuzzer(labelfile korvo_label)
korvo_fuzzer(setfile korvo_label)
korvo_fuzzer(freetexts korvo_label)
korvo_fuzzer(comprobacion korvo_label)
