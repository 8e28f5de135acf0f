# What the preview area adds here.
