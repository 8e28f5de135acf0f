# What the editor area adds here.
korvo_fuzzer(vista korvo_editor)
