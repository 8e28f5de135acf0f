# What the preview area adds here.
korvo_fuzzer(wmf korvo_preview)
korvo_fuzzer(emf korvo_preview)
