# What the transfer area adds here.
