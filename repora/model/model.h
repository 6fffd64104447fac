#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "repora/model/ids.h"
#include "repora/model/value.h"

// What the library asks of a modelling tool. A host binds these interfaces to its own model, or
// uses the one in memory (repora/model/memory_model.h).

class MOXBuilderI;
class MOXBuilderValidatorI;
class MOXModelI;
class MOXModelSetI;

enum Success_e { eFailed = 0, eSuccess = 1 };

// A handle on one model object. An empty handle has the id 0.
class MOXObject {
 public:
  MOXObject() = default;
  MOXObject(MOXModelI* model, std::uint32_t id, MOXId type) : model_(model), id_(id), type_(type) {}
  std::uint32_t Id() const { return id_; }
  MOXId Type() const { return type_; }
  MOXModelI* Model() const { return model_; }
  // The parent; an empty handle for the root.
  MOXObject Owner() const;
  // eSuccess when the object has the property; the value is empty otherwise. The flag is the model
  // library's own.
  Success_e GetProperty(MOXId const& id, QELValue& value, bool flag) const;

 private:
  MOXModelI* model_ = nullptr;  // borrowed
  std::uint32_t id_ = 0;
  MOXId type_ = 0;
};

// Goes through the objects of a model. ++ comes before the first read.
class MOXObjectIterator {
 public:
  // What a model implements to be iterated.
  class Cursor {
   public:
    virtual ~Cursor() = default;
    virtual bool Next() = 0;  // false when no object is left
    virtual MOXObject Current() const = 0;
  };

  void Start(std::unique_ptr<Cursor> cursor) { cursor_ = std::move(cursor); }
  bool operator++() { return cursor_ && cursor_->Next(); }
  void GetValue(MOXObject& object) const { object = cursor_ ? cursor_->Current() : MOXObject(); }

 private:
  std::unique_ptr<Cursor> cursor_;
};

// The metamodel's answer that objects of a type carry a property.
class MOXAssociation {
 public:
  // What pIsDeprecated can answer, beside false and true.
  static constexpr int kNotSet = 2;

  virtual ~MOXAssociation() = default;
  // A property of the association itself: 0 false, 1 true, kNotSet.
  virtual int GetBoolean(MOXId const& property) const = 0;
};

// The model under construction, or the metamodel that describes it.
class MOXModelI {
 public:
  virtual ~MOXModelI() = default;
  virtual void GetRootObject(MOXObject& root) = 0;
  virtual void CreateIterator(MOXObjectIterator& iterator) = 0;
  virtual bool FindObject(std::uint32_t id, MOXObject& object) = 0;

  // What object handles read through.
  virtual MOXObject OwnerOf(std::uint32_t id) = 0;
  virtual Success_e PropertyOf(std::uint32_t id, MOXId property, QELValue& value) const = 0;

  // What MOXUtilityPack asks a metamodel; other models leave the answers below.
  virtual MOXAssociation const* AssociationOf(MOXId object_type, MOXId property) const;
  virtual std::string NameOfType(MOXId object_type, MOXId terminology) const;

  // What ORVBuiltInObjectIndex asks: false when the model has no such built-in object.
  virtual bool FindBuiltIn(int index, MOXId type, MOXObject& object);

  // Told before (true) and after (false) a build.
  virtual void SetUnderConstruction(bool under_construction);
};

// One message to the host.
class MOXAdvisory {
 public:
  enum Severity_e { eInformation = 1, eWarning = 2 };

  MOXAdvisory() = default;
  MOXAdvisory(std::string code, Severity_e severity, std::string message)
      : code_(std::move(code)), message_(std::move(message)), severity_(severity) {}
  std::string const& Code() const { return code_; }
  Severity_e Severity() const { return severity_; }
  std::string const& Message() const { return message_; }

 private:
  std::string code_;
  std::string message_;
  Severity_e severity_ = eInformation;
};

// Something that happened on the advisory channel.
class MOXPublishedEventI {
 public:
  virtual ~MOXPublishedEventI() = default;
  virtual MOXAdvisory const& Advisory() const = 0;
};

class MOXSubscriberI {
 public:
  virtual void Notify(MOXPublishedEventI const& event) = 0;
  virtual ~MOXSubscriberI() = default;
};

class MOXAdvisoryChannelI {
 public:
  virtual ~MOXAdvisoryChannelI() = default;
  // Subscribers are borrowed; subscribing twice counts once, null is ignored.
  virtual void Subscribe(MOXSubscriberI* subscriber) = 0;
  virtual void Unsubscribe(MOXSubscriberI* subscriber) = 0;
  // Keeps the advisory and tells the subscribers. The counts say how many subscribers were told,
  // how many advisories are held now and how many were dropped.
  virtual void Publish(MOXAdvisory const& advisory, long& told, long& held, long& dropped) = 0;
  // Fills the list with the advisories held.
  virtual void GetAdvisories(std::vector<MOXAdvisory>& advisories) const = 0;
};

// Objects by type.
class MOXTypeIndexI {
 public:
  virtual ~MOXTypeIndexI() = default;
  // The ids of the objects of that type, borrowed until the model changes; null when there is none.
  virtual std::vector<std::uint32_t> const* ObjectsOfType(MOXId type) const = 0;
};

// The set of models that a host hands to the processor. It owns what it returns pointers to.
class MOXModelSetI {
 public:
  virtual ~MOXModelSetI() = default;
  virtual MOXModelI* GetModel() = 0;
  virtual MOXModelI* GetMetamodel() = 0;
  virtual MOXAdvisoryChannelI* GetAdvisoryChannel() = 0;
  virtual MOXTypeIndexI* GetTypeIndex() = 0;

  // What the builder factory and the validator factory ask. Null: the set cannot be built.
  virtual std::unique_ptr<MOXBuilderI> NewBuilder() = 0;
  virtual std::unique_ptr<MOXBuilderValidatorI> NewBuilderValidator() = 0;
};

class MOXUtilityPack {
 public:
  enum NameType_e { eDisplayName = 1 };

  // Null when objects of the type do not carry the property.
  static MOXAssociation const* FindAssociation(MOXModelI const* metamodel, MOXId const& object_type,
                                               MOXId const& property);
  // The display name of an object type in a terminology (ORVTypes::tPhysicalName, or 0 for the
  // logical one); empty when the metamodel has none. The last argument is not used.
  static std::string MetaobjectName(MOXId object_type, NameType_e name_type,
                                    MOXModelI const* metamodel, MOXId terminology, void* unused);
};

// The objects that every model has from its start, by number.
class ORVBuiltInObjectIndex {
 public:
  static constexpr int kTriggerTemplate = 131;

  static ORVBuiltInObjectIndex& GetInstance();
  bool FindBuiltInObject(MOXModelI* model, int index, MOXId const& type, MOXObject& object) const;
};
